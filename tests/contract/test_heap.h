// The renderer's heap, as the contract tests see it: it counts, and it can refuse.
#pragma once

#include <cstddef>

struct TestHeap {
    int live;               // blocks
    int failNext;           // nonzero: this many allocations yield null
    std::size_t lastSize;   // of the newest allocation
    std::size_t freedSize;  // what the last kelmo_free was told
};

TestHeap& testHeap();
