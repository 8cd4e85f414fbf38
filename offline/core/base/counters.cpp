#include "core/base/counters.h"

#include <cstring>

#include "core/core_api.h"

namespace Offline {

Counters counters{};

namespace {

struct NamedCounter {
    const char* name;
    std::uint64_t Counters::*member;
};

constexpr NamedCounter NAMED_COUNTERS[] = {
    {"allocations", &Counters::allocations},
    {"reallocations", &Counters::reallocations},
    {"frees", &Counters::frees},
    {"failed_allocations", &Counters::failedAllocations},
    {"live_blocks", &Counters::liveBlocks},
    {"live_bytes", &Counters::liveBytes},
    {"peak_bytes", &Counters::peakBytes},
    {"wrong_sizes", &Counters::wrongSizes},
    {"foreign_frees", &Counters::foreignFrees},
    {"values_made", &Counters::valuesMade},
    {"values_freed", &Counters::valuesFreed},
    {"plugins_made", &Counters::pluginsMade},
    {"plugins_freed", &Counters::pluginsFreed},
    {"scenes_made", &Counters::scenesMade},
    {"scenes_freed", &Counters::scenesFreed},
    {"errors_made", &Counters::errorsMade},
    {"errors_freed", &Counters::errorsFreed},
    {"attached_parameters", &Counters::attachedParameters},
};

static_assert(sizeof NAMED_COUNTERS / sizeof NAMED_COUNTERS[0] == sizeof(Counters) / sizeof(std::uint64_t),
              "every counter has a name");

}  // namespace

void enumCounters(CounterSink sink, void* user) {
    for (const NamedCounter& entry : NAMED_COUNTERS) sink(user, entry.name, counters.*entry.member);
}

std::uint64_t counter(const char* name) {
    for (const NamedCounter& entry : NAMED_COUNTERS) {
        if (std::strcmp(entry.name, name) == 0) return counters.*entry.member;
    }
    return 0;
}

}  // namespace Offline
