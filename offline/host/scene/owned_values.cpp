#include "host/scene/owned_values.h"

#include <cstring>

#include "kelmo/param/plugin_parameter.h"

namespace Offline {

namespace {

// Half full of keys at 64 slots before the first growth beyond it; never smaller than it began.
constexpr std::uint32_t FIRST_CAPACITY = 64;
constexpr float GROW_LOAD = 0.75f;
constexpr float SHRINK_LOAD = 0.25f;
constexpr std::uint32_t MINIMUM_SIZE = 48;  // 64 * 0.75: a table of 64 is never halved

unsigned char* entryAt(const KUtils::PointerSet& set, std::uint32_t slot) {
    return set.entries + static_cast<std::size_t>(slot) * KUtils::POINTER_SET_ENTRY_BYTES;
}

bool isInUse(const unsigned char* entry) {
    return entry[KUtils::POINTER_SET_FLAG_OFFSET] == KUtils::POINTER_SET_IN_USE;
}

}  // namespace

KUtils::PointerSet* makeOwnedValues() {
    const std::size_t bytes = FIRST_CAPACITY * KUtils::POINTER_SET_ENTRY_BYTES;
    auto* set = static_cast<KUtils::PointerSet*>(kelmo_malloc(sizeof(KUtils::PointerSet)));
    if (set == nullptr) return nullptr;
    auto* entries = static_cast<unsigned char*>(kelmo_malloc(bytes));
    if (entries == nullptr) {
        kelmo_free(set, sizeof *set);
        return nullptr;
    }
    std::memset(entries, 0, bytes);
    *set = KUtils::PointerSet{entries,     FIRST_CAPACITY, 0,           KUtils::POINTER_SET_FIRST_NEIGHBOURHOOD,
                              SHRINK_LOAD, GROW_LOAD,      MINIMUM_SIZE};
    for (std::uint32_t slot = 0; slot < FIRST_CAPACITY; ++slot)
        entryAt(*set, slot)[KUtils::POINTER_SET_FLAG_OFFSET] = KUtils::POINTER_SET_EMPTY;
    return set;
}

std::uint32_t countOwnedValues(const KUtils::PointerSet& set) {
    std::uint32_t inUse = 0;
    for (std::uint32_t slot = 0; slot < set.capacity; ++slot) inUse += isInUse(entryAt(set, slot)) ? 1 : 0;
    return inUse;
}

std::uint32_t freeOwnedValues(KUtils::PointerSet* set) {
    if (set == nullptr) return 0;
    std::uint32_t freed = 0;
    for (std::uint32_t slot = 0; slot < set->capacity; ++slot) {
        unsigned char* entry = entryAt(*set, slot);
        if (!isInUse(entry)) continue;
        // Keys lie at any alignment.
        KUtils::KelmoPluginParameter* value = nullptr;
        std::memcpy(&value, entry, sizeof value);
        entry[KUtils::POINTER_SET_FLAG_OFFSET] = KUtils::POINTER_SET_EMPTY;
        delete value;
        ++freed;
    }
    kelmo_free(set->entries, set->capacity * KUtils::POINTER_SET_ENTRY_BYTES);
    kelmo_free(set, sizeof *set);
    return freed;
}

}  // namespace Offline
