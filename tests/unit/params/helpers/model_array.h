// A plain model of a growable array of numbers: what a block holds survives a smaller count.
#pragma once

#include <vector>

struct ModelArray {
    std::vector<int> block;  // as long as the capacity
    int count = 0;

    bool holds(int index) const { return index >= 0 && index < count; }
    int at(int index) const { return holds(index) ? block[static_cast<std::size_t>(index)] : 0; }

    // A capacity of its own is only made when the count does not fit.
    void resize(int wanted, int capacity) {
        if (wanted < 0) wanted = 0;
        if (wanted > static_cast<int>(block.size())) {
            block.resize(static_cast<std::size_t>(count));
            block.resize(static_cast<std::size_t>(capacity));
        }
        count = wanted;
    }
    void setCount(int wanted) { resize(wanted, wanted); }

    void store(int value, int index) {
        if (!holds(index)) {
            index = count;
            resize(count + 1, ((count + 1) / 100 + 1) * 100);
        }
        block[static_cast<std::size_t>(index)] = value;
    }
};
