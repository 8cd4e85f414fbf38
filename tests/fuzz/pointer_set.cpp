// Insertions and removals on the owned-value set and on a plain model of its rules: the same answers, entry by entry
// the same memory, and the same keys as a std::set holds. The first bytes choose the hash, the loads, and whether
// memory runs short, when only the keys are compared.
#include <set>

#include "input.h"
#include "set_memory.h"
#include "test_sets.h"

using KUtils::PointerSet;

namespace {

// There are 128 keys, neighbours in memory as small blocks are.
std::uint64_t keyOf(int choice) { return static_cast<std::uint64_t>(choice & 127) * 0x10 + 0x7f0000001000; }

template <class Hash>
void run(fuzz::Input& input) {
    using Set = KUtils::PointerSetAlgorithm<Hash>;
    const Loads& loads = LOADS[input.below(3)];
    PointerSet set = makeSet(loads);
    ModelSet model = makeModel(loads, Hash::of);
    std::set<std::uint64_t> plain;

    while (input.more()) {
        const int choice = input.byte();  // the highest bit removes
        const std::uint64_t key = keyOf(choice);
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
        REQUIRE(sameSizes(set, model) && sameEntries(set, model));
        REQUIRE(set.count == plain.size());
        REQUIRE(Set::contains(set, key) == (plain.count(key) == 1));
    }
    for (const std::uint64_t key : plain) REQUIRE(Set::contains(set, key));
    freeSet(set);
}

// Without memory to grow, a key may find no slot; those that found one stay, once each.
void runShort(fuzz::Input& input) {
    using Set = KUtils::PointerSetAlgorithm<OneHomeHash>;
    PointerSet set = makeSet(LOADS[input.below(3)]);
    setMemory().failFrom = setMemory().requests + 1 + static_cast<std::size_t>(input.below(4));
    std::set<std::uint64_t> plain;
    while (input.more()) {
        const int choice = input.byte();
        const std::uint64_t key = keyOf(choice);
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
    freeSet(set);
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
