// The algorithm of the owned-value set (kelmo/scene/pointer_set.h): open addressing in which a key lies
// less than `neighbourhood` slots behind its home slot, and every slot between the two is in use.
//
// Insertion takes the nearest empty slot and brings it closer by moving keys into it; when none can be
// moved the neighbourhood grows, and when that is large and the table half full the table doubles.
//
// The host works on the same memory, so the placement is exact: the same calls give the same entries.
// Ownership: the entries belong to the renderer's heap. Nothing throws; a table that cannot grow keeps its
// array, and a key that finds no slot is not registered.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "kelmo/core/allocator.h"
#include "kelmo/scene/pointer_set.h"

namespace KUtils {

// `Hash` maps a 64-bit key to 32 bits.
template <class Hash>
class PointerSetAlgorithm {
  public:
    using Key = std::uint64_t;

    // Adds `key`. With `checkPresent` a key that is already there is left alone; the load is tested first
    // in either case.
    static void insert(PointerSet& set, Key key, bool checkPresent) {
        for (;;) {
            if (set.capacity == 0 || set.entries == nullptr) {
                if (!rehash(set, set.capacity == 0 ? 1 : doubled(set.capacity))) return;
            }
            if (isAbove(set, set.growLoad)) rehash(set, doubled(set.capacity));

            const std::uint32_t home = homeOf(set, key);
            std::uint32_t distance = 0;
            if (checkPresent) {
                const std::uint32_t reach = std::min(set.neighbourhood, set.capacity);
                for (; distance < reach && inUse(set, home + distance); ++distance) {
                    if (keyAt(set, home + distance) == key) return;
                }
            }
            while (distance < set.capacity && inUse(set, home + distance)) ++distance;

            const bool found = distance < set.capacity;
            if (found && place(set, key, home, distance, true)) return;
            if (!rehash(set, doubled(set.capacity))) {
                if (found) place(set, key, home, distance, false);
                return;
            }
        }
    }

    static bool contains(const PointerSet& set, Key key) {
        std::uint32_t slot = 0;
        return find(set, key, slot);
    }

    // Calls `destroy()` and takes the key out, in this order; false when the key is absent.
    template <class Destroy>
    static bool remove(PointerSet& set, Key key, Destroy destroy) {
        std::uint32_t slot = 0;
        if (!find(set, key, slot)) return false;
        destroy();
        setFlag(set, slot, POINTER_SET_EMPTY);
        closeGap(set, slot);
        --set.count;

        const std::uint32_t half = set.capacity / 2;
        const bool roomy = isBelow(set, set.shrinkLoad) &&
                           static_cast<float>(half) * set.growLoad >= static_cast<float>(set.minimumSize);
        if (roomy && half >= 1 && set.count <= half) rehash(set, half);
        return true;
    }

    // Moves every key into a new array; into a larger one still when they do not fit. False, with the set
    // as it was, when no array can be had.
    static bool rehash(PointerSet& set, std::uint32_t capacity) {
        for (; capacity != 0; capacity = doubled(capacity)) {
            PointerSet next = set;
            next.entries = static_cast<unsigned char*>(kelmo_malloc(bytes(capacity)));
            if (next.entries == nullptr) return false;
            std::memset(next.entries, POINTER_SET_EMPTY, bytes(capacity));
            next.capacity = capacity;
            next.count = 0;
            next.neighbourhood = POINTER_SET_FIRST_NEIGHBOURHOOD;
            if (!insertAll(next, set)) {
                kelmo_free(next.entries, bytes(capacity));
                continue;
            }
            kelmo_free(set.entries, bytes(set.capacity));
            set = next;
            return true;
        }
        return false;
    }

  private:
    static std::size_t bytes(std::uint32_t capacity) { return capacity * POINTER_SET_ENTRY_BYTES; }

    // 0 when it does not fit.
    static std::uint32_t doubled(std::uint32_t capacity) { return capacity * 2; }

    // The load against a bound. The capacity is a power of two, so the product is as exact as the quotient would be.
    static bool isAbove(const PointerSet& set, float load) {
        return static_cast<float>(set.count) > load * static_cast<float>(set.capacity);
    }
    static bool isBelow(const PointerSet& set, float load) {
        return static_cast<float>(set.count) < load * static_cast<float>(set.capacity);
    }

    // Slots are cyclic; entries lie unaligned.
    static unsigned char* entry(const PointerSet& set, std::uint32_t slot) {
        return set.entries + std::size_t{slot & (set.capacity - 1)} * POINTER_SET_ENTRY_BYTES;
    }
    static bool inUse(const PointerSet& set, std::uint32_t slot) {
        return entry(set, slot)[POINTER_SET_FLAG_OFFSET] == POINTER_SET_IN_USE;
    }
    static void setFlag(PointerSet& set, std::uint32_t slot, unsigned char flag) {
        entry(set, slot)[POINTER_SET_FLAG_OFFSET] = flag;
    }
    static Key keyAt(const PointerSet& set, std::uint32_t slot) {
        Key key = 0;
        std::memcpy(&key, entry(set, slot), sizeof key);
        return key;
    }
    static void store(PointerSet& set, std::uint32_t slot, Key key) {
        std::memcpy(entry(set, slot), &key, sizeof key);
        setFlag(set, slot, POINTER_SET_IN_USE);
    }
    static std::uint32_t homeOf(const PointerSet& set, Key key) { return Hash()(key) & (set.capacity - 1); }

    // How far `to` lies behind `from`.
    static std::uint32_t distanceOf(const PointerSet& set, std::uint32_t from, std::uint32_t to) {
        return (to - from) & (set.capacity - 1);
    }

    static bool find(const PointerSet& set, Key key, std::uint32_t& slot) {
        if (set.capacity == 0 || set.entries == nullptr) return false;
        const std::uint32_t home = homeOf(set, key);
        const std::uint32_t reach = std::min(set.neighbourhood, set.capacity);
        for (std::uint32_t distance = 0; distance < reach && inUse(set, home + distance); ++distance) {
            if (keyAt(set, home + distance) != key) continue;
            slot = (home + distance) & (set.capacity - 1);
            return true;
        }
        return false;
    }

    // Stores a key whose nearest empty slot lies at `distance` from its home. False when the table is
    // crowded and had better double, unless it must not; what was moved stays moved.
    static bool place(PointerSet& set, Key key, std::uint32_t home, std::uint32_t& distance, bool mayRefuse) {
        if (distance >= set.neighbourhood && !makeRoom(set, home, distance, mayRefuse)) return false;
        store(set, home + distance, key);
        ++set.count;
        return true;
    }

    // Brings the empty slot at `distance` into the neighbourhood of `home`, or raises the neighbourhood.
    static bool makeRoom(PointerSet& set, std::uint32_t home, std::uint32_t& distance, bool mayRefuse) {
        while (distance >= set.neighbourhood) {
            if (bringCloser(set, home, distance)) continue;
            if (mayRefuse && set.neighbourhood >= 32 && !isBelow(set, 0.5f)) return false;
            set.neighbourhood += 4;
        }
        return true;
    }

    // Moves the farthest key that may lie in the empty slot into it; the key's old slot becomes the empty one.
    static bool bringCloser(PointerSet& set, std::uint32_t home, std::uint32_t& distance) {
        const std::uint32_t empty = home + distance;
        for (std::uint32_t back = set.neighbourhood; back > 0; --back) {
            const Key moved = keyAt(set, empty - back);
            if (distanceOf(set, homeOf(set, moved), empty) >= set.neighbourhood) continue;
            store(set, empty, moved);
            setFlag(set, empty - back, POINTER_SET_EMPTY);
            distance -= back;
            return true;
        }
        return false;
    }

    // Keeps every run without a gap: a key whose way from its home leads over the hole moves into it.
    static void closeGap(PointerSet& set, std::uint32_t hole) {
        for (std::uint32_t step = 1; step <= set.neighbourhood && inUse(set, hole + step); ++step) {
            const std::uint32_t slot = hole + step;
            const Key key = keyAt(set, slot);
            if (distanceOf(set, homeOf(set, key), slot) < distanceOf(set, hole, slot)) continue;
            store(set, hole, key);
            setFlag(set, slot, POINTER_SET_EMPTY);
            hole = slot;
            step = 0;
        }
    }

    static bool insertAll(PointerSet& target, const PointerSet& source) {
        if (source.entries == nullptr) return true;
        for (std::uint32_t slot = 0; slot < source.capacity; ++slot) {
            if (!inUse(source, slot)) continue;
            const Key key = keyAt(source, slot);
            const std::uint32_t home = homeOf(target, key);
            std::uint32_t distance = 0;
            while (distance < target.capacity && inUse(target, home + distance)) ++distance;
            if (distance == target.capacity || !place(target, key, home, distance, true)) return false;
        }
        return true;
    }
};

}  // namespace KUtils
