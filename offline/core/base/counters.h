// What the core counts. One record for the whole process; read from outside with enumCounters().
#pragma once

#include <cstdint>

namespace Offline {

struct Counters {
    std::uint64_t allocations;
    std::uint64_t reallocations;
    std::uint64_t frees;
    std::uint64_t failedAllocations;
    std::uint64_t liveBlocks;
    std::uint64_t liveBytes;
    std::uint64_t peakBytes;
    std::uint64_t wrongSizes;    // kelmo_free with a size that was not asked for
    std::uint64_t foreignFrees;  // blocks given back that the allocator did not hand out, or twice
    std::uint64_t valuesMade;    // the core's own value objects
    std::uint64_t valuesFreed;
    std::uint64_t pluginsMade;
    std::uint64_t pluginsFreed;
    std::uint64_t scenesMade;
    std::uint64_t scenesFreed;
    std::uint64_t errorsMade;
    std::uint64_t errorsFreed;
    std::uint64_t attachedParameters;
};

extern Counters counters;

}  // namespace Offline
