// The renderer's heap for these tests: counts what lives and can refuse.
#pragma once

#include <cstddef>

struct SetMemory {
    std::size_t blocks = 0;    // alive
    std::size_t bytes = 0;     // alive
    std::size_t requests = 0;  // ever
    std::size_t failFrom = 0;  // the request (1: the first) from which on all fail; 0: none
    bool sizesAgree = true;    // every block was freed with the size it was asked for
};

SetMemory& setMemory();
