// The core's allocator for unit tests that run without the core library: it counts, refuses on demand
// and poisons. Link target test_allocator and no core library.
//
// Fresh blocks hold 0xCD, freed ones 0xDD. A block that is freed twice, with a wrong size or that was
// never allocated is counted as a wrong free.
#pragma once

#include <cstddef>
#include <cstdint>

namespace test_allocator {

struct Counters {
    std::int64_t requests;   // allocations asked for, also those refused
    std::int64_t refused;    // by the plan, or because nobody can serve them
    std::int64_t live;       // blocks not yet freed
    std::int64_t liveBytes;  // their bytes
    std::int64_t wrongFrees;
};

Counters counters();

// The size of request number `index` since the last reset (0: the first); 0 when it was not kept.
std::size_t requestedSize(std::int64_t index);

// Starts counting requests anew and forgets the plan; live blocks stay counted.
void reset();

// From now on request number `nth` (1: the next) is refused, alone or with all that follow.
void refuse(std::int64_t nth, bool fromThenOn);

}  // namespace test_allocator
