// How the offline host is driven: one table of C functions, obtained with the export
// "kelmoOfflineControl". No C++ type and no exception crosses it.
//
// Ownership: texts handed to a sink are valid during the call only. Threads: one, the script's.
// Functions that return int return 0 on success; on failure lastError() says why.
#pragma once

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

#define OFFLINE_CONTROL_VERSION 1u
#define OFFLINE_CONTROL_EXPORT "kelmoOfflineControl"

typedef void (*OfflineTextSink)(void* user, const char* text, size_t length);
typedef void (*OfflineCounterSink)(void* user, const char* name, uint64_t value);

struct OfflineControl {
    uint32_t version;
    uint32_t size;  // of this table in bytes: a newer host may have a longer one

    // Why the last failing call failed; empty when none did. Valid until the next call.
    const char* (*lastError)(void);

    // Adds the plugin types of every *.json file of a folder to the catalogue; before a scene is opened.
    int (*addTypes)(const char* directory);

    // The catalogue: one JSON object for each type, or for the named one.
    int (*types)(const char* typeName, OfflineTextSink sink, void* user);

    // Reads an offline scene into the main scene. `shownName` (null: the path) names it in messages.
    int (*open)(const char* path, const char* shownName);
    int (*openText)(const char* text, size_t length, const char* shownName);

    // Writes the main scene: to a file (aside, then renamed) or to a sink, one call a
    // line, the line's end included.
    int (*save)(const char* path);
    int (*saveText)(OfflineTextSink sink, void* user);

    // Writes extra scene `index` (0: the newest) to a sink.
    int (*saveExtraText)(int index, OfflineTextSink sink, void* user);

    // Remembers the main scene as it is now; then: what has changed since, one JSON object a change, in
    // the scene's order. Plugins that were there:
    //   {"change":"deleted","plugin":"NAME","type":"TYPE"}
    //   {"change":"set","plugin":"NAME","type":"TYPE","param":"NAME","old":"TEXT","new":"TEXT"}
    // then those that are new, each followed by its values as "set" with "old":null:
    //   {"change":"created","plugin":"NAME","type":"TYPE"}
    // then the extra scenes that came in since, oldest first:
    //   {"change":"scene_added","plugins":COUNT}
    // TEXT is the value as it stands in a scene file, a long list or text shortened with its length. "old" is
    // null where no value was carried before, "new" where none is carried now.
    int (*snapshot)(void);
    int (*changes)(OfflineTextSink sink, void* user);

    // Back to the state after loading: no plugins, no extra scenes, no owned values, no warnings,
    // nothing observed, no failure injected, no types added. The manager and the list of extra scenes keep
    // their addresses; script accesses that are open stay so unless the host had ended.
    int (*reset)(void);

    // Ends the host: frees owned values, then the scenes, then reports as one JSON object what it
    // freed and what is still alive, all counted since the last reset. Returns 0 when nothing is alive.
    // Only reset may follow. The report:
    //   owned_freed, scenes_freed   values of the owned-value set, extra scenes
    //   values_made, values_freed   value objects of the core's own
    //   values_leaked, plugins_leaked, scenes_leaked, errors_leaked, blocks_leaked, bytes_leaked
    //   accesses_open               script accesses begun and not ended
    //   misuse_wrong_sizes, misuse_foreign_frees, misuse_threads   wrong calls, and last_misuse: TEXT
    int (*end)(OfflineTextSink sink, void* user);

    // Calls `sink` with one line for each call that the host or the core receives; null: no more.
    void (*observe)(OfflineTextSink sink, void* user);

    // The warnings printed since the last reset, oldest first; `echo` says whether they go to stderr.
    void (*warnings)(OfflineTextSink sink, void* user);
    void (*clearWarnings)(void);
    void (*echoWarnings)(int echo);

    // Name and value of every counter (allocations, values, plugins, ...).
    void (*counters)(OfflineCounterSink sink, void* user);

    // Lets the n-th allocation from now (1: the next) fail, once or from then on; 0: none.
    void (*failAllocation)(uint64_t nth, int persistent);
};

// The table, or null when the host does not know this version.
typedef const struct OfflineControl* (*OfflineControlFunction)(uint32_t version);

#ifdef __cplusplus
}
#endif
