// The owned-value set: its hash, its exact placement, growth, shrinking, and what happens without memory.
#include "pointer_set/pointer_set_algorithm.h"

#include <cstdint>
#include <vector>

#include "check.h"
#include "model_set.h"
#include "pointer_set/owned_values.h"
#include "pointer_set/pointer_hash.h"
#include "set_memory.h"

using KUtils::PointerHash;
using KUtils::PointerSet;

namespace {

struct SpreadHash {
    static std::uint32_t of(std::uint64_t key) { return PointerHash()(key); }
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
    const char* label;
    float shrink;
    float grow;
    std::uint32_t minimumSize;
    std::uint32_t firstCapacity;
};

const Loads LOADS[] = {
    {"sparse", 0.1f, 0.3f, 4, 16},
    {"usual", 0.2f, 0.75f, 16, 32},
    {"full", 0.45f, 1.0f, 0, 1},
};

PointerSet makeSet(const Loads& loads) {
    PointerSet set{};
    set.capacity = loads.firstCapacity;
    set.entries = static_cast<unsigned char*>(kelmo_malloc(set.capacity * std::size_t{9}));
    std::memset(set.entries, 1, set.capacity * std::size_t{9});
    set.neighbourhood = 4;
    set.shrinkLoad = loads.shrink;
    set.growLoad = loads.grow;
    set.minimumSize = loads.minimumSize;
    return set;
}

void freeSet(PointerSet& set) {
    kelmo_free(set.entries, set.capacity * std::size_t{9});
    set.entries = nullptr;
}

bool sameEntries(const PointerSet& set, const ModelSet& model) {
    for (std::uint32_t i = 0; i < set.capacity; ++i) {
        const unsigned char* entry = set.entries + std::size_t{i} * 9;
        if (entry[8] != (model.empty[i] ? 1 : 0)) return false;
        std::uint64_t key = 0;
        std::memcpy(&key, entry, 8);
        if (entry[8] == 0 && key != model.keys[i]) return false;
    }
    return true;
}

struct Random {
    std::uint64_t state;
    std::uint64_t next() {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return state;
    }
};

// `operations` random insertions and removals; at most `live` keys, drawn from few, so that many repeat.
template <class Hash>
void compareWithModel(const Loads& loads, std::uint32_t operations, std::uint32_t live, std::uint32_t stride) {
    using Set = KUtils::PointerSetAlgorithm<Hash>;
    PointerSet set = makeSet(loads);
    ModelSet model;
    model.clear(loads.firstCapacity);
    model.shrinkLoad = loads.shrink;
    model.growLoad = loads.grow;
    model.minimumSize = loads.minimumSize;
    model.hash = Hash::of;

    Random random{0x9e3779b97f4a7c15ull + live};
    bool filling = true;
    std::uint32_t removed = 0;
    for (std::uint32_t step = 0; step < operations; ++step) {
        if (set.count >= live) filling = false;
        if (set.count == 0) filling = true;
        const std::uint64_t key = (random.next() % (live * 2) + 1) * 0x1010;
        const bool insert = random.next() % 4 < (filling ? 3u : 1u);
        if (insert) {
            Set::insert(set, key, true);
            model.insert(key);
        } else {
            bool destroyed = false;
            const bool was = Set::remove(set, key, [&] { destroyed = true; });
            CHECK_EQ(was, model.remove(key));
            CHECK_EQ(destroyed, was);
            removed += was;
        }
        const bool same = set.count == model.count && set.capacity == model.capacity() &&
                          set.neighbourhood == model.neighbourhood &&
                          ((step % stride != 0 && step + 1 != operations) || sameEntries(set, model));
        CHECK(same);
        if (!same) break;
    }
    CHECK(removed > operations / 10);
    freeSet(set);
}

}  // namespace

TEST_CASE(hashMatchesPublishedValues) {
    struct Row {
        std::uint64_t key;
        std::uint32_t hash;
    };
    const Row rows[] = {{0, 0x58c184bf}, {0x1000, 0x113cad6e}, {0x123456789abcdef0, 0x123116fe}};
    for (const Row& row : rows) CHECK_EQ(PointerHash()(row.key), row.hash);
}

TEST_CASE(entriesEqualTheModelWithTheRealHash) {
    for (const Loads& loads : LOADS) {
        CHECK_ROW(loads.label);
        compareWithModel<SpreadHash>(loads, 1000000, 40, 1);
        compareWithModel<SpreadHash>(loads, 1000000, 1500, 256);
    }
}

TEST_CASE(entriesEqualTheModelWithACollidingHash) {
    for (const Loads& loads : LOADS) {
        CHECK_ROW(loads.label);
        compareWithModel<EightHomesHash>(loads, 1000000, 100, 8);
        compareWithModel<OneHomeHash>(loads, 1000000, 40, 8);
    }
}

TEST_CASE(neighbourhoodGrowsBeforeTheTableDoes) {
    using Set = KUtils::PointerSetAlgorithm<OneHomeHash>;
    PointerSet set = makeSet({"", 0, 0.9f, 0, 64});
    for (std::uint32_t n = 1; n <= 36; ++n) {
        Set::insert(set, n * 16, true);
        const std::uint32_t expected = n <= 32 ? (n + 3) / 4 * 4 : 36;
        CHECK_EQ(set.neighbourhood, expected);
        CHECK_EQ(set.capacity, n <= 32 ? 64u : 128u);
        CHECK_EQ(set.count, n);
    }
    for (std::uint32_t n = 1; n <= 36; ++n) CHECK(Set::contains(set, n * 16));
    freeSet(set);
}

TEST_CASE(insertTestsTheLoadBeforeTheKey) {
    using Set = KUtils::PointerSetAlgorithm<SpreadHash>;
    PointerSet set = makeSet({"", 0, 0.5f, 0, 4});
    for (std::uint64_t key : {16, 32, 48}) Set::insert(set, key, true);
    CHECK_EQ(set.capacity, 4u);
    Set::insert(set, 48, true);
    CHECK_EQ(set.capacity, 8u);
    CHECK_EQ(set.count, 3u);
    freeSet(set);
}

TEST_CASE(insertWithoutTheCheckStoresTwice) {
    using Set = KUtils::PointerSetAlgorithm<SpreadHash>;
    PointerSet set = makeSet({"", 0, 0.9f, 0, 16});
    Set::insert(set, 16, true);
    Set::insert(set, 16, false);
    CHECK_EQ(set.count, 2u);
    freeSet(set);
}

TEST_CASE(illegalTablesAreMadeLegalFirst) {
    using Set = KUtils::PointerSetAlgorithm<SpreadHash>;
    struct Row {
        const char* label;
        std::uint32_t capacity;
        std::uint32_t expected;
    };
    for (const Row& row : {Row{"no slots", 0, 1}, Row{"no entries", 8, 16}}) {
        CHECK_ROW(row.label);
        PointerSet set{};
        set.capacity = row.capacity;
        set.growLoad = 0.75f;
        CHECK(!Set::remove(set, 16, [] {}));
        Set::insert(set, 16, true);
        CHECK_EQ(set.capacity, row.expected);
        CHECK_EQ(set.count, 1u);
        CHECK(Set::contains(set, 16));
        freeSet(set);
    }
}

TEST_CASE(aTableNeverHalvesBelowItsKeys) {
    using Set = KUtils::PointerSetAlgorithm<SpreadHash>;
    PointerSet set = makeSet({"", 2.0f, 4.0f, 0, 1});
    for (std::uint64_t key = 16; key <= 16 * 64; key += 16) Set::insert(set, key, true);
    for (std::uint64_t key = 16; key <= 16 * 64; key += 16) {
        CHECK(Set::remove(set, key, [] {}));
        CHECK(set.capacity >= 1 && set.count <= set.capacity);
        for (std::uint64_t other = key + 16; other <= 16 * 64; other += 16) CHECK(Set::contains(set, other));
    }
    CHECK_EQ(set.count, 0u);
    freeSet(set);
}

TEST_CASE(halvingKeepsTheMinimumSize) {
    using Set = KUtils::PointerSetAlgorithm<SpreadHash>;
    PointerSet set = makeSet({"", 0.5f, 0.5f, 8, 64});
    for (std::uint64_t key = 16; key <= 16 * 20; key += 16) Set::insert(set, key, true);
    for (std::uint64_t key = 16; key <= 16 * 20; key += 16) Set::remove(set, key, [] {});
    CHECK_EQ(set.capacity, 16u);
    freeSet(set);
}

TEST_CASE(withoutMemoryTheOldArrayStays) {
    using Set = KUtils::PointerSetAlgorithm<OneHomeHash>;
    PointerSet set = makeSet({"", 0, 0.25f, 0, 8});
    SetMemory& memory = setMemory();
    memory.failFrom = memory.requests + 1;
    for (std::uint64_t key = 16; key <= 16 * 12; key += 16) Set::insert(set, key, true);
    memory.failFrom = 0;
    CHECK_EQ(set.capacity, 8u);
    CHECK_EQ(set.count, 8u);
    for (std::uint64_t key = 16; key <= 16 * 12; key += 16) CHECK_EQ(Set::contains(set, key), key <= 16 * 8);
    freeSet(set);

    PointerSet nothing{};
    memory.failFrom = memory.requests + 1;
    Set::insert(nothing, 16, true);
    memory.failFrom = 0;
    CHECK_EQ(nothing.count, 0u);
    CHECK(nothing.entries == nullptr);
}

// A crowded table that had better double, and cannot, takes the key all the same while it has a slot.
TEST_CASE(withoutMemoryACrowdedTableTakesMore) {
    using Set = KUtils::PointerSetAlgorithm<OneHomeHash>;
    PointerSet set = makeSet({"", 0, 0.9f, 0, 64});
    for (std::uint32_t n = 1; n <= 32; ++n) Set::insert(set, n * 16, true);
    SetMemory& memory = setMemory();
    const std::size_t requests = memory.requests;
    memory.failFrom = requests + 1;
    for (std::uint32_t n = 33; n <= 36; ++n) {
        Set::insert(set, n * 16, true);
        CHECK_EQ(set.count, n);
    }
    memory.failFrom = 0;
    CHECK(memory.requests > requests);
    CHECK_EQ(set.capacity, 64u);
    CHECK_EQ(set.neighbourhood, 36u);
    for (std::uint32_t n = 1; n <= 36; ++n) CHECK(Set::contains(set, n * 16));
    freeSet(set);
}

TEST_CASE(aFailingHalvingKeepsTheTable) {
    using Set = KUtils::PointerSetAlgorithm<SpreadHash>;
    PointerSet set = makeSet({"", 0.5f, 0.5f, 0, 64});
    for (std::uint64_t key = 16; key <= 16 * 20; key += 16) Set::insert(set, key, true);
    SetMemory& memory = setMemory();
    memory.failFrom = memory.requests + 1;
    for (std::uint64_t key = 16; key <= 16 * 19; key += 16) CHECK(Set::remove(set, key, [] {}));
    memory.failFrom = 0;
    CHECK_EQ(set.capacity, 64u);
    CHECK_EQ(set.count, 1u);
    CHECK(Set::contains(set, 16 * 20));
    freeSet(set);
}

namespace {

struct WatchedValue : KUtils::KelmoPluginParameter {
    explicit WatchedValue(PointerSet* owner) : set(owner) {}
    ~WatchedValue() override {
        ++destroyed;
        stillRegistered =
            KUtils::PointerSetAlgorithm<PointerHash>::contains(*set, reinterpret_cast<std::uintptr_t>(this));
    }
    const char* getName() override { return "watched"; }

    PointerSet* set;
    static int destroyed;
    static bool stillRegistered;
};
int WatchedValue::destroyed = 0;
bool WatchedValue::stillRegistered = false;

}  // namespace

TEST_CASE(valuesAreDestroyedOnceAndBeforeTheirSlotIsEmptied) {
    PointerSet set = makeSet(LOADS[1]);
    auto* value = new WatchedValue(&set);
    KUtils::registerOwnedValue(&set, value);
    KUtils::registerOwnedValue(&set, value);
    CHECK_EQ(set.count, 1u);
    CHECK(KUtils::destroyOwnedValue(&set, value));
    CHECK_EQ(WatchedValue::destroyed, 1);
    CHECK(WatchedValue::stillRegistered);
    CHECK_EQ(set.count, 0u);

    auto* foreign = new WatchedValue(&set);
    CHECK(!KUtils::destroyOwnedValue(&set, foreign));
    KUtils::registerOwnedValue(nullptr, foreign);
    CHECK(!KUtils::destroyOwnedValue(nullptr, foreign));
    CHECK_EQ(WatchedValue::destroyed, 1);
    delete foreign;
    freeSet(set);
}

TEST_CASE(nothingIsLeftInTheHeap) {
    CHECK_EQ(setMemory().blocks, std::size_t{0});
    CHECK(setMemory().sizesAgree);
}

int main(int argc, char** argv) { return check::run(argc, argv); }
