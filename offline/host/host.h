// The one state of the offline host: the main scene, the extra scenes, the owned-value set, warnings.
//
// It is made at the first call and lives until the process ends, so that it outlives every loading and
// freeing of the library. Threads: one; a call from another is reported as misuse.
#pragma once

#include <cstdint>
#include <string>

#include "core/core_api.h"
#include "host/report/change_report.h"
#include "host/report/warnings.h"
#include "host/scene/extra_scenes.h"
#include "host/scene/host_manager.h"
#include "kelmo/scene/scene_list.h"

namespace Offline {

class Host {
  public:
    // The state; made when there is none.
    static Host& get();

    // Back to the state after loading. False when there is no memory for it.
    bool reset();

    // Frees owned values, then the scenes. After it only reset() makes sense.
    void end();
    bool hasEnded() const { return ended; }
    // What end() freed and what is still alive, as one JSON object; meaningful after it.
    std::string report() const;
    // Whether something is still alive; meaningful after end().
    bool leaks() const;

    // Adds a folder of plugin types until the next reset. Null on success.
    KUtils::ErrorRecord* addTypes(const char* directory);

    // Reports an export request's plugin, or null. `kind`: the kind that it must be of; null: any.
    KUtils::Plugin* exportNode(const char* functionName, const char* node, const char* kind);

    // Every call from outside comes through here: it tells a second thread.
    void noteCall(const char* functionName);

    SceneContents& contents() { return mainContents(manager.pluginManager); }
    void enumCounters(CounterSink sink, void* user) const;

    HostManager manager;
    KUtils::SceneList scenes = emptyExtraScenes();  // keeps its place: the module remembers it
    Warnings warnings;
    ChangeReport changes;

  private:
    // The core's counters that the report compares with those at the last reset.
    struct Marks {
        std::uint64_t valuesMade, valuesFreed, pluginsMade, pluginsFreed, scenesMade, scenesFreed, errorsMade,
            errorsFreed, liveBlocks, liveBytes, wrongSizes, foreignFrees;
    };
    static Marks marksNow();

    Host();
    void readOwnTypes();
    void release();

    Marks atReset{};
    std::uint64_t thread = 0;  // the first that called; 0: none yet
    std::uint64_t foreignCalls = 0;
    std::uint32_t ownedFreed = 0;
    std::uint32_t scenesFreed = 0;
    bool typesAdded = false;
    bool ended = false;
    std::string typesProblem;  // why the host's own types could not be read; empty: they could
};

}  // namespace Offline
