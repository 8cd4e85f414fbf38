// Insertions and removals on the owned-value set and on a plain model of its rules: the same answers, entry by entry
// the same memory, and the same keys as a std::set holds. The first bytes choose the hash, the loads, and whether
// memory runs short, when only the keys are compared.
#include <cstring>
#include <set>

#include "input.h"
#include "model_set.h"
#include "pointer_set/pointer_hash.h"
#include "pointer_set/pointer_set_algorithm.h"
#include "set_memory.h"

using KUtils::PointerSet;

namespace {

struct SpreadHash {
    static std::uint32_t of(std::uint64_t key) { return KUtils::PointerHash()(key); }
    std::uint32_t operator()(std::uint64_t key) const { return of(key); }
};
struct EightHomesHash {
    static std::uint32_t of(std::uint64_t key) { return static_cast<std::uint32_t>(key >> 4) % 8 * 7; }
    std::uint32_t operator()(std::uint64_t key) const { return of(key); }
};
struct OneHomeHash {
    static std::uint32_t of(std::uint64_t) { return 5; }
    std::uint32_t operator()(std::uint64_t key) const { return of(key); }
};

struct Loads {
    float shrink;
    float grow;
    std::uint32_t minimumSize;
    std::uint32_t firstCapacity;
};
const Loads LOADS[] = {{0.1f, 0.3f, 4, 16}, {0.2f, 0.75f, 16, 32}, {0.45f, 1.0f, 0, 1}};

PointerSet makeSet(const Loads& loads) {
    PointerSet set{};
    set.capacity = loads.firstCapacity;
    set.entries = static_cast<unsigned char*>(kelmo_malloc(set.capacity * KUtils::POINTER_SET_ENTRY_BYTES));
    std::memset(set.entries, KUtils::POINTER_SET_EMPTY, set.capacity * KUtils::POINTER_SET_ENTRY_BYTES);
    set.neighbourhood = KUtils::POINTER_SET_FIRST_NEIGHBOURHOOD;
    set.shrinkLoad = loads.shrink;
    set.growLoad = loads.grow;
    set.minimumSize = loads.minimumSize;
    return set;
}

void compareEntries(const PointerSet& set, const ModelSet& model) {
    REQUIRE(set.count == model.count && set.capacity == model.capacity());
    REQUIRE(set.neighbourhood == model.neighbourhood);
    for (std::uint32_t i = 0; i < set.capacity; ++i) {
        const unsigned char* entry = set.entries + i * KUtils::POINTER_SET_ENTRY_BYTES;
        REQUIRE(entry[KUtils::POINTER_SET_FLAG_OFFSET] == (model.empty[i] ? 1 : 0));
        std::uint64_t key = 0;
        std::memcpy(&key, entry, sizeof key);
        REQUIRE(model.empty[i] || key == model.keys[i]);
    }
}

template <class Hash>
void run(fuzz::Input& input) {
    using Set = KUtils::PointerSetAlgorithm<Hash>;
    const Loads& loads = LOADS[input.below(3)];
    PointerSet set = makeSet(loads);
    ModelSet model;
    model.clear(loads.firstCapacity);
    model.shrinkLoad = loads.shrink;
    model.growLoad = loads.grow;
    model.minimumSize = loads.minimumSize;
    model.hash = Hash::of;
    std::set<std::uint64_t> plain;

    while (input.more()) {
        // The highest bit removes; there are 128 keys, neighbours in memory as small blocks are.
        const int choice = input.byte();
        const std::uint64_t key = static_cast<std::uint64_t>(choice & 127) * 0x10 + 0x7f0000001000;
        if (choice < 128) {
            Set::insert(set, key, true);
            model.insert(key);
            plain.insert(key);
        } else {
            bool destroyed = false;
            const bool removed = Set::remove(set, key, [&] { destroyed = true; });
            REQUIRE(removed == destroyed && removed == model.remove(key));
            REQUIRE(removed == (plain.erase(key) == 1));
        }
        compareEntries(set, model);
        REQUIRE(set.count == plain.size());
        REQUIRE(Set::contains(set, key) == (plain.count(key) == 1));
    }
    for (const std::uint64_t key : plain) REQUIRE(Set::contains(set, key));
    kelmo_free(set.entries, set.capacity * KUtils::POINTER_SET_ENTRY_BYTES);
}

// Without memory to grow, a key may find no slot; those that found one stay, once each.
void runShort(fuzz::Input& input) {
    using Set = KUtils::PointerSetAlgorithm<OneHomeHash>;
    PointerSet set = makeSet(LOADS[input.below(3)]);
    setMemory().failFrom = setMemory().requests + 1 + static_cast<std::size_t>(input.below(4));
    std::set<std::uint64_t> plain;
    while (input.more()) {
        const int choice = input.byte();
        const std::uint64_t key = static_cast<std::uint64_t>(choice & 127) * 0x10 + 0x7f0000001000;
        if (choice < 128) {
            Set::insert(set, key, true);
            if (Set::contains(set, key)) plain.insert(key);
        } else {
            REQUIRE(Set::remove(set, key, [] {}) == (plain.erase(key) == 1));
        }
        REQUIRE(set.count == plain.size());
        for (const std::uint64_t each : plain) REQUIRE(Set::contains(set, each));
    }
    setMemory().failFrom = 0;
    kelmo_free(set.entries, set.capacity * KUtils::POINTER_SET_ENTRY_BYTES);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    switch (input.below(4)) {
        case 0:
            run<SpreadHash>(input);
            break;
        case 1:
            run<EightHomesHash>(input);
            break;
        case 2:
            run<OneHomeHash>(input);
            break;
        default:
            runShort(input);
            break;
    }
    REQUIRE(setMemory().blocks == 0 && setMemory().sizesAgree);
    return 0;
}
