// What the tests and the fuzzer of the owned-value set share: hashes, loads, a fresh set, the comparison with the
// model.
#pragma once

#include <cstdint>
#include <cstring>

#include "model_set.h"
#include "pointer_set/pointer_hash.h"
#include "pointer_set/pointer_set_algorithm.h"

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
    const char* label;
    float shrink;
    float grow;
    std::uint32_t minimumSize;
    std::uint32_t firstCapacity;
};

inline constexpr Loads LOADS[] = {
    {"sparse", 0.1f, 0.3f, 4, 16},
    {"usual", 0.2f, 0.75f, 16, 32},
    {"full", 0.45f, 1.0f, 0, 1},
};

inline KUtils::PointerSet makeSet(const Loads& loads) {
    KUtils::PointerSet set{};
    set.capacity = loads.firstCapacity;
    set.entries = static_cast<unsigned char*>(kelmo_malloc(set.capacity * std::size_t{9}));
    std::memset(set.entries, 1, set.capacity * std::size_t{9});
    set.neighbourhood = 4;
    set.shrinkLoad = loads.shrink;
    set.growLoad = loads.grow;
    set.minimumSize = loads.minimumSize;
    return set;
}

inline void freeSet(KUtils::PointerSet& set) {
    kelmo_free(set.entries, set.capacity * std::size_t{9});
    set.entries = nullptr;
}

inline ModelSet makeModel(const Loads& loads, std::uint32_t (*hash)(std::uint64_t key)) {
    ModelSet model;
    model.clear(loads.firstCapacity);
    model.shrinkLoad = loads.shrink;
    model.growLoad = loads.grow;
    model.minimumSize = loads.minimumSize;
    model.hash = hash;
    return model;
}

inline bool sameSizes(const KUtils::PointerSet& set, const ModelSet& model) {
    return set.count == model.count && set.capacity == model.capacity() && set.neighbourhood == model.neighbourhood;
}

// Of sets of the same sizes.
inline bool sameEntries(const KUtils::PointerSet& set, const ModelSet& model) {
    for (std::uint32_t i = 0; i < set.capacity; ++i) {
        const unsigned char* entry = set.entries + std::size_t{i} * 9;
        if (entry[8] != (model.empty[i] ? 1 : 0)) return false;
        std::uint64_t key = 0;
        std::memcpy(&key, entry, 8);
        if (entry[8] == 0 && key != model.keys[i]) return false;
    }
    return true;
}
