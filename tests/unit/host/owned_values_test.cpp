#include "host/scene/owned_values.h"

#include <cstring>

#include "core/core_api.h"
#include "stub_values.h"
#include "support/check.h"

namespace {

// Puts a key where the test wants it: the host must not mind how the module places keys.
void put(KUtils::PointerSet& set, std::uint32_t slot, KUtils::KelmoPluginParameter* value) {
    unsigned char* entry = set.entries + slot * KUtils::POINTER_SET_ENTRY_BYTES;
    std::memcpy(entry, &value, sizeof value);
    entry[KUtils::POINTER_SET_FLAG_OFFSET] = KUtils::POINTER_SET_IN_USE;
    ++set.count;
}

}  // namespace

TEST_CASE(aNewSetIsEmptyAndAsTheModuleExpectsIt) {
    KUtils::PointerSet* set = Offline::makeOwnedValues();
    CHECK(set != nullptr && set->entries != nullptr);
    CHECK_EQ(set->capacity, 64u);
    CHECK_EQ(set->count, 0u);
    CHECK_EQ(set->neighbourhood, KUtils::POINTER_SET_FIRST_NEIGHBOURHOOD);
    CHECK_EQ(Offline::countOwnedValues(*set), 0u);
    // A full table must grow before it is full, and a grown one may come back to this size but not below.
    CHECK(set->growLoad > 0.0f && set->growLoad < 1.0f);
    CHECK(set->shrinkLoad > 0.0f && set->shrinkLoad < set->growLoad / 2.0f);
    CHECK(64.0f * set->growLoad >= static_cast<float>(set->minimumSize));
    CHECK(32.0f * set->growLoad < static_cast<float>(set->minimumSize));
    CHECK_EQ(Offline::freeOwnedValues(set), 0u);
}

TEST_CASE(everyValueIsFreedWhereverItLies) {
    const std::uint64_t blocks = Offline::counter("live_blocks");
    KUtils::PointerSet* set = Offline::makeOwnedValues();
    const std::uint32_t slots[] = {0, 1, 2, 3, 7, 31, 62, 63};  // at every alignment
    for (std::uint32_t slot : slots) put(*set, slot, new stub::Int("x", static_cast<int>(slot)));
    CHECK_EQ(Offline::countOwnedValues(*set), 8u);
    CHECK_EQ(stub::alive(), 8);
    CHECK_EQ(Offline::freeOwnedValues(set), 8u);
    CHECK_EQ(stub::alive(), 0);
    CHECK_EQ(Offline::counter("live_blocks"), blocks);
}

TEST_CASE(aSetThatTheModuleHasGrownIsWalkedWhole) {
    const std::uint64_t blocks = Offline::counter("live_blocks");
    const std::uint64_t misuse = Offline::counter("wrong_sizes");
    KUtils::PointerSet* set = Offline::makeOwnedValues();
    kelmo_free(set->entries, set->capacity * KUtils::POINTER_SET_ENTRY_BYTES);
    set->capacity = 256;
    set->entries = static_cast<unsigned char*>(kelmo_malloc(256 * KUtils::POINTER_SET_ENTRY_BYTES));
    std::memset(set->entries, KUtils::POINTER_SET_EMPTY, 256 * KUtils::POINTER_SET_ENTRY_BYTES);
    put(*set, 255, new stub::Float("y", 1.0f));
    CHECK_EQ(Offline::freeOwnedValues(set), 1u);
    CHECK_EQ(stub::alive(), 0);
    CHECK_EQ(Offline::counter("live_blocks"), blocks);
    CHECK_EQ(Offline::counter("wrong_sizes"), misuse);
}

TEST_CASE(withoutMemoryThereIsNoSet) {
    const std::uint64_t blocks = Offline::counter("live_blocks");
    for (std::uint64_t nth = 1; nth <= 2; ++nth) {
        Offline::failAllocation(nth, false);
        CHECK_EQ(Offline::makeOwnedValues(), nullptr);
    }
    Offline::failAllocation(0, false);
    CHECK_EQ(Offline::counter("live_blocks"), blocks);
    CHECK_EQ(Offline::freeOwnedValues(nullptr), 0u);
}
