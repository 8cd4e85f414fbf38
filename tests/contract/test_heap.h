// The renderer's heap, as the contract tests see it: it counts, and it can refuse.
#pragma once

#include <cstddef>

struct TestHeap {
    int live;               // blocks
    int failNext;           // nonzero: this many allocations yield null
    void* newest;           // the newest block
    std::size_t lastSize;   // its size
    std::size_t freedSize;  // what the last kelmo_free was told
};

TestHeap& testHeap();
