// The owned-value set as its rules say it, step by step, on two plain arrays: what the packed set is
// compared with. Slow on purpose.
#pragma once

#include <cstdint>
#include <vector>

struct ModelSet {
    std::vector<std::uint64_t> keys;
    std::vector<char> empty;
    std::uint32_t count = 0;
    std::uint32_t neighbourhood = 4;
    float shrinkLoad = 0;
    float growLoad = 1;
    std::uint32_t minimumSize = 0;
    std::uint32_t (*hash)(std::uint64_t key) = nullptr;

    std::uint32_t capacity() const { return static_cast<std::uint32_t>(keys.size()); }
    std::uint32_t wrap(std::int64_t slot) const {
        const std::int64_t size = capacity();
        return static_cast<std::uint32_t>(((slot % size) + size) % size);
    }
    std::uint32_t home(std::uint64_t key) const { return hash(key) % capacity(); }
    // Steps from slot `from` forward to slot `to`.
    std::uint32_t steps(std::uint32_t from, std::uint32_t to) const { return wrap(std::int64_t{to} - from); }
    float load() const { return static_cast<float>(count) / static_cast<float>(capacity()); }

    void clear(std::uint32_t size) {
        keys.assign(size, 0);
        empty.assign(size, 1);
        count = 0;
        neighbourhood = 4;
    }

    // Steps 3 to 6 of an insertion; false: the table must double first.
    bool placeKey(std::uint64_t key) {
        const std::uint32_t from = home(key);
        std::uint32_t d = 0;
        while (d < capacity() && !empty[wrap(std::int64_t{from} + d)]) d++;
        if (d == capacity()) return false;
        while (true) {
            const std::uint32_t hole = wrap(std::int64_t{from} + d);
            if (d < neighbourhood) {
                keys[hole] = key;
                empty[hole] = 0;
                count++;
                return true;
            }
            bool moved = false;
            for (std::uint32_t i = 0; i < neighbourhood && !moved; i++) {
                const std::uint32_t slot = wrap(std::int64_t{hole} - neighbourhood + i);
                if (steps(home(keys[slot]), hole) < neighbourhood) {
                    keys[hole] = keys[slot];
                    empty[hole] = 0;
                    empty[slot] = 1;
                    d = steps(from, slot);
                    moved = true;
                }
            }
            if (moved) continue;
            if (neighbourhood >= 32 && load() >= 0.5f) return false;
            neighbourhood += 4;
        }
    }

    void rehash(std::uint32_t size) {
        std::vector<std::uint64_t> held;
        for (std::uint32_t i = 0; i < capacity(); i++)
            if (!empty[i]) held.push_back(keys[i]);
        for (bool done = false; !done; size *= 2) {
            clear(size);
            done = true;
            for (std::size_t i = 0; i < held.size() && done; i++) done = placeKey(held[i]);
        }
    }

    void insert(std::uint64_t key) {
        while (true) {
            if (load() > growLoad) rehash(capacity() * 2);
            const std::uint32_t from = home(key);
            for (std::uint32_t i = 0; i < neighbourhood && i < capacity(); i++) {
                const std::uint32_t slot = wrap(std::int64_t{from} + i);
                if (empty[slot]) break;
                if (keys[slot] == key) return;
            }
            if (placeKey(key)) return;
            rehash(capacity() * 2);
        }
    }

    bool remove(std::uint64_t key) {
        const std::uint32_t from = home(key);
        for (std::uint32_t i = 0; i < neighbourhood && i < capacity(); i++) {
            std::uint32_t hole = wrap(std::int64_t{from} + i);
            if (empty[hole]) return false;
            if (keys[hole] != key) continue;
            empty[hole] = 1;
            for (std::uint32_t walked = 1; walked <= neighbourhood; walked++) {
                const std::uint32_t slot = wrap(std::int64_t{hole} + walked);
                if (empty[slot]) break;
                const std::uint32_t h = home(keys[slot]);
                const bool stays = h != hole && steps(hole, h) <= steps(hole, slot);
                if (stays) continue;
                keys[hole] = keys[slot];
                empty[hole] = 0;
                empty[slot] = 1;
                hole = slot;
                walked = 0;
            }
            count--;
            const std::uint32_t half = capacity() / 2;
            if (load() < shrinkLoad && static_cast<float>(half) * growLoad >= static_cast<float>(minimumSize) &&
                half >= 1 && count <= half)
                rehash(half);
            return true;
        }
        return false;
    }
};
