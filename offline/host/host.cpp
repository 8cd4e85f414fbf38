#include "host/host.h"

#include <cstdio>
#include <cstdlib>

#include "core/base/call_line.h"
#include "core/scene_file/scene_file_api.h"
#include "host/report/error_chain.h"
#include "host/report/json_object.h"
#include "host/scene/owned_values.h"
#include "host/system/process.h"

namespace Offline {

namespace {

constexpr char TYPES_FROM_HERE[] = "/../share/kelmo-offline/types";

// Never destroyed: values and scripts may outlive the destruction of static objects.
Host* host = nullptr;

// Without a program that ends the host, the end of the process does; it speaks only of what is wrong.
void endWithProcess() {
    if (host == nullptr || host->hasEnded()) return;
    host->end();
    if (host->leaks()) std::fprintf(stderr, "kelmo: left alive at the end: %s\n", host->report().c_str());
}

}  // namespace

Host& Host::get() {
    if (host == nullptr) {
        keepLoaded();
        host = new Host;
        std::atexit(endWithProcess);
    }
    return *host;
}

Host::Host() : manager(*this) {
    reset();
    setCallWatcher([](const char* functionName) { Host::get().noteCall(functionName); });
    // What was allocated before the host was first asked is not the host's, so it can be left over at the end.
    atReset = Marks{};
}

// The catalogue

void Host::readOwnTypes() {
    manager.pluginManager = makeManager();
    typesAdded = false;
    typesProblem.clear();
    if (manager.pluginManager == nullptr) return;
    const std::string folder = ownFolder() + TYPES_FROM_HERE;
    KUtils::ErrorRecord* error = Offline::addTypes(manager.pluginManager, folder.c_str());
    if (error != nullptr) typesProblem = "the plugin types could not be read: " + takeErrorText(error);
}

KUtils::ErrorRecord* Host::addTypes(const char* directory) {
    typesAdded = true;
    return Offline::addTypes(manager.pluginManager, directory);
}

// Life

void Host::release() {
    // Values first: their destructors may look at the plugins that they refer to.
    ownedFreed = freeOwnedValues(manager.ownedParams);
    manager.ownedParams = nullptr;
    scenesFreed = freeExtraScenes(scenes);
    if (manager.pluginManager != nullptr) clearContents(contents());
    changes.forget();
}

bool Host::reset() {
    failAllocation(0, false);
    setObserver(nullptr, nullptr);
    release();
    if (typesAdded) {
        freeManager(manager.pluginManager);
        manager.pluginManager = nullptr;
    }
    if (manager.pluginManager == nullptr) readOwnTypes();
    warnings.clear();
    if (!typesProblem.empty()) warnings.add(typesProblem.c_str());
    atReset = marksNow();
    manager.forgetAccesses(ended);
    thread = foreignCalls = 0;
    ownedFreed = scenesFreed = 0;
    ended = false;
    manager.ownedParams = makeOwnedValues();
    return manager.pluginManager != nullptr && manager.ownedParams != nullptr;
}

void Host::end() {
    if (ended) return;
    setObserver(nullptr, nullptr);
    failAllocation(0, false);
    release();
    ended = true;
}

// What the module asks

KUtils::Plugin* Host::exportNode(const char* functionName, const char* node, const char* kind) {
    noteCall(functionName);
    if (isObserved()) CallLine("host.").text(functionName).text("(").quoted(node).text(")");
    if (node == nullptr || ended) return nullptr;
    KUtils::ErrorRecord* problem = nullptr;
    KUtils::Plugin* plugin = materialise(contents(), node, kind, &problem);
    if (problem != nullptr) warnings.add(("a deferred record cannot be made: " + takeErrorText(problem)).c_str());
    return plugin;
}

void Host::noteCall(const char* functionName) {
    const std::uint64_t caller = currentThread();
    if (caller == thread) return;
    if (thread == 0) {
        thread = caller;
        return;
    }
    if (++foreignCalls > 1) return;  // the first one tells where to look
    const std::string text =
        std::string(functionName) + " was called from a second thread; only the thread that called first may call";
    warnings.add(text.c_str());
}

// What is left

Host::Marks Host::marksNow() {
    return Marks{counter("values_made"), counter("values_freed"), counter("plugins_made"), counter("plugins_freed"),
                 counter("scenes_made"), counter("scenes_freed"), counter("errors_made"),  counter("errors_freed"),
                 counter("live_blocks"), counter("live_bytes"),   counter("wrong_sizes"),  counter("foreign_frees")};
}

bool Host::leaks() const {
    const Marks now = marksNow();
    return now.liveBlocks > atReset.liveBlocks ||
           now.valuesMade - now.valuesFreed > atReset.valuesMade - atReset.valuesFreed;
}

std::string Host::report() const {
    const Marks now = marksNow();
    // What was there at the reset and is gone now does not count against what is left.
    const auto more = [](std::uint64_t after, std::uint64_t before) { return after > before ? after - before : 0; };
    const auto alive = [more](std::uint64_t made, std::uint64_t freed, std::uint64_t madeBefore,
                              std::uint64_t freedBefore) { return more(made - freed, madeBefore - freedBefore); };
    JsonObject report;
    report.number("owned_freed", ownedFreed)
        .number("scenes_freed", scenesFreed)
        .number("values_made", now.valuesMade - atReset.valuesMade)
        .number("values_freed", now.valuesFreed - atReset.valuesFreed)
        .number("values_leaked", alive(now.valuesMade, now.valuesFreed, atReset.valuesMade, atReset.valuesFreed))
        .number("plugins_leaked", alive(now.pluginsMade, now.pluginsFreed, atReset.pluginsMade, atReset.pluginsFreed))
        .number("scenes_leaked", alive(now.scenesMade, now.scenesFreed, atReset.scenesMade, atReset.scenesFreed))
        .number("errors_leaked", alive(now.errorsMade, now.errorsFreed, atReset.errorsMade, atReset.errorsFreed))
        .number("blocks_leaked", more(now.liveBlocks, atReset.liveBlocks))
        .number("bytes_leaked", more(now.liveBytes, atReset.liveBytes))
        .number("accesses_open", more(manager.accessesBegun, manager.accessesEnded))
        .number("misuse_wrong_sizes", now.wrongSizes - atReset.wrongSizes)
        .number("misuse_foreign_frees", now.foreignFrees - atReset.foreignFrees)
        .number("misuse_threads", foreignCalls)
        .text("last_misuse", lastMisuse());
    return report.line();
}

void Host::enumCounters(CounterSink sink, void* user) const {
    Offline::enumCounters(sink, user);
    sink(user, "script_access_begun", manager.accessesBegun);
    sink(user, "script_access_ended", manager.accessesEnded);
    sink(user, "owned_values", manager.ownedParams != nullptr ? countOwnedValues(*manager.ownedParams) : 0);
    sink(user, "extra_scenes", static_cast<std::uint64_t>(scenes.count));
    sink(user, "main_plugins", manager.pluginManager != nullptr ? pluginCount(mainContents(manager.pluginManager)) : 0);
    sink(user, "warnings", warnings.count());
}

}  // namespace Offline
