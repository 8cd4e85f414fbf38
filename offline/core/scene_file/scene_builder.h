// Puts plugins that were read into a scene, and settles the references that could not be set at once.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/scene/scene_contents.h"
#include "core/scene_file/records/plugin_line.h"

namespace Offline {

// The open references of one value.
struct OpenValue {
    Value* value;
    std::string plugin;
    const char* param;  // the catalogue's
    std::uint64_t line;
    std::vector<OpenReference> references;
};

// Makes the plugin of a line, with its values, which then belong to the scene. Null when the name is taken or there is
// no memory. References that are still open are added to `open`.
OfflinePlugin* buildPlugin(SceneContents& contents, PluginLine& line, std::uint64_t lineNumber,
                           std::vector<OpenValue>& open);

// The plugin that a reference of this scene means: one of its own, else one of the main scene; or null.
OfflinePlugin* resolve(const SceneContents& contents, const char* name);

// Sets the references of `open`. Calls `missing` for each that names no plugin, and leaves it without one.
template <class Missing>
void settle(const SceneContents& contents, const OpenValue& open, Missing missing);

// Sets the references with these ordinals to these plugins (null: stays as it is).
void setReferences(Value& value, const std::vector<OpenReference>& references,
                   const std::vector<OfflinePlugin*>& plugins);

template <class Missing>
void settle(const SceneContents& contents, const OpenValue& open, Missing missing) {
    std::vector<OfflinePlugin*> plugins;
    for (const OpenReference& reference : open.references) {
        plugins.push_back(resolve(contents, reference.name.c_str()));
        if (plugins.back() == nullptr) missing(open, reference);
    }
    setReferences(*open.value, open.references, plugins);
}

}  // namespace Offline
