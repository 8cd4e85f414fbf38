// What the renderer core offers beyond the binary contract: to the host plug-in, which drives it, and to
// tests. Only plain types cross this border, because on some systems each library has a C++ runtime of its own.
//
// Ownership: whoever makes a manager frees it, after the extra scenes that were made over it. Texts handed to
// a sink are valid during the call only. Errors are chains of records (null: success) of which the caller
// holds one reference. Threads: one, the script's.
#pragma once

#include <cstddef>
#include <cstdint>

#include "kelmo/core/error_record.h"
#include "kelmo/core/export.h"
#include "kelmo/param/shader_source.h"
#include "kelmo/plugin/plugin_manager.h"
#include "kelmo/scene/scene.h"

namespace Offline {

class SceneContents;

using TextSink = void (*)(void* user, const char* text, std::size_t length);
using CounterSink = void (*)(void* user, const char* name, std::uint64_t value);

// Memory and counters.

// Lets the n-th allocation from now (1: the next) fail, once or from then on; 0: none.
KELMO_CORE_API void failAllocation(std::uint64_t nth, bool persistent);
// Name and value of every counter of the core, always in the same order.
KELMO_CORE_API void enumCounters(CounterSink sink, void* user);
// One counter by its name; 0 for a name that does not exist.
KELMO_CORE_API std::uint64_t counter(const char* name);
// The last wrong use of the allocator as a sentence; empty when there was none.
KELMO_CORE_API const char* lastMisuse();

// The observer: receives one line for each call that the core receives from outside.

KELMO_CORE_API void setObserver(TextSink sink, void* user);  // null: nobody listens
KELMO_CORE_API bool isObserved();
// Hands a line to the observer. See base/call_line.h for how lines are built.
KELMO_CORE_API void reportCall(const char* text, std::size_t length);

// Is told the name of each call that a manager or a scene receives from outside; null: nobody. Whoever listens tells
// a second thread by it.
using CallWatcher = void (*)(const char* functionName);
KELMO_CORE_API void setCallWatcher(CallWatcher watcher);

// The manager of the main scene: a catalogue of plugin types and the main scene's contents.

KELMO_CORE_API KUtils::PluginManager* makeManager();
KELMO_CORE_API void freeManager(KUtils::PluginManager* manager);
KELMO_CORE_API SceneContents& mainContents(KUtils::PluginManager* manager);

// Adds the types of every *.json file of a folder, in the order of their names. A type replaces one of the same
// name. A file with an error adds nothing; the files before it stay added.
KELMO_CORE_API KUtils::ErrorRecord* addTypes(KUtils::PluginManager* manager, const char* directory);
// One JSON object for each type in the order of reading, or for the named one; false: no such type.
KELMO_CORE_API bool describeTypes(KUtils::PluginManager* manager, const char* typeName, TextSink sink, void* user);
// The type's name that is nearest to `name`, or null when none is near.
KELMO_CORE_API const char* nearestType(KUtils::PluginManager* manager, const char* name);
// The type's kind as the catalogue spells it ("material", ...).
KELMO_CORE_API const char* kindOf(KUtils::Plugin* plugin);

// Extra scenes.

KELMO_CORE_API SceneContents& contentsOf(KUtils::KelmoScene* scene);
// Destroys a scene that stands in 32 bytes of the core's heap, with its contents. Null is allowed.
KELMO_CORE_API void freeScene(KUtils::KelmoScene* scene);

// Contents of a scene, main or extra.

KELMO_CORE_API KUtils::Plugin* findPlugin(SceneContents& contents, const char* name);  // null: none
// The plugin that stands for this DCC node: the one whose node it is, else the one of this name; or null.
KELMO_CORE_API KUtils::Plugin* findPluginOfNode(SceneContents& contents, const char* node);
// Null: unknown type, empty or taken name, or no memory.
KELMO_CORE_API KUtils::Plugin* createPlugin(SceneContents& contents, const char* typeName, const char* name);
// False when it is no living plugin of these contents.
KELMO_CORE_API bool deletePlugin(SceneContents& contents, KUtils::Plugin* plugin);
KELMO_CORE_API bool isAlive(KUtils::Plugin* plugin);
// As the manager's enumPlugins, without a report to the observer.
KELMO_CORE_API void enumContents(SceneContents& contents, KUtils::EnumPluginCallback* callback);
// As the list's enumParams, without a report to the observer.
KELMO_CORE_API void enumValues(KUtils::Plugin* plugin, KUtils::EnumParamsCallback* callback);
KELMO_CORE_API std::size_t pluginCount(SceneContents& contents);
// Frees values, then plugins, and forgets deferred records and header.
KELMO_CORE_API void clearContents(SceneContents& contents);

// Shader text, collected.

KELMO_CORE_API KUtils::ShaderSource* makeShaderSource();
KELMO_CORE_API const char* shaderText(const KUtils::ShaderSource* source);
KELMO_CORE_API void freeShaderSource(KUtils::ShaderSource* source);

// Makes an error record; see base/error_maker.h. Takes over the caller's reference to `cause`.
KELMO_CORE_API KUtils::ErrorRecord* makeErrorText(const char* location, KUtils::ErrorRecord* cause, const char* text);

}  // namespace Offline
