// What has changed in a scene since it was remembered.
//
// Memory: what is remembered of a value is a digest and a short text, never the value, so that it does
// not grow with the length of lists. Plugins are told by their addresses, which a scene keeps until it
// ends; it must be forgotten before the scene does.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/core_api.h"
#include "kelmo/scene/scene_list.h"

namespace Offline {

class ChangeReport {
  public:
    void remember(SceneContents& contents, const KUtils::SceneList& extraScenes);
    void forget();
    bool hasRemembered() const { return remembered; }

    // One JSON object a change, in the scene's order; see control.h for their form.
    void report(SceneContents& contents, const KUtils::SceneList& extraScenes, TextSink sink, void* user);

  private:
    struct PluginRecord {
        KUtils::Plugin* plugin;
        std::size_t firstValue;  // its values end where those of the next plugin begin
    };
    struct ValueRecord {
        std::uint64_t digest;
        std::uint32_t name;  // into `names`
        std::uint32_t textLength;
        std::size_t text;  // into `texts`
    };
    // A value as it is now.
    struct CurrentValue {
        std::string name;
        KUtils::KelmoPluginParameter* value;
    };

    static std::vector<CurrentValue> valuesOf(KUtils::Plugin* plugin);
    std::uint32_t internedName(const char* name);
    void reportPlugin(std::size_t index, TextSink sink, void* user);
    std::size_t valuesEnd(std::size_t index) const {
        return index + 1 < plugins.size() ? plugins[index + 1].firstValue : values.size();
    }

    bool remembered = false;
    std::vector<PluginRecord> plugins;
    std::vector<ValueRecord> values;
    std::string texts;               // all short texts, end to end
    std::vector<std::string> names;  // parameter names; they repeat from plugin to plugin
    std::unordered_map<std::string, std::uint32_t> nameIndex;
    std::int32_t extraCount = 0;
};

}  // namespace Offline
