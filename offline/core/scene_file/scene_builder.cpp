#include "core/scene_file/scene_builder.h"

namespace Offline {
namespace {

struct Setting {
    const std::vector<OpenReference>& references;
    const std::vector<OfflinePlugin*>& plugins;
    std::size_t next;
    std::int32_t ordinal;
};

}  // namespace

OfflinePlugin* buildPlugin(SceneContents& contents, PluginLine& line, std::uint64_t lineNumber,
                           std::vector<OpenValue>& open) {
    OfflinePlugin* plugin = contents.create(*line.type, line.name.c_str());
    if (plugin == nullptr) return nullptr;
    bool whole = line.node.empty() || contents.setNode(*plugin, line.node.c_str());
    for (LineParam& param : line.params) {
        whole = whole && plugin->carry(param.value);
        if (!whole) break;
        contents.own(param.value);
        if (!param.openReferences.empty()) {
            open.push_back(
                {param.value, line.name, param.value->getName(), lineNumber, std::move(param.openReferences)});
        }
        param.value = nullptr;
    }
    if (whole) return plugin;
    contents.remove(plugin);
    return nullptr;
}

OfflinePlugin* resolve(const SceneContents& contents, const char* name) {
    OfflinePlugin* plugin = contents.find(name);
    return plugin == nullptr && contents.parent() != nullptr ? contents.parent()->find(name) : plugin;
}

void setReferences(Value& value, const std::vector<OpenReference>& references,
                   const std::vector<OfflinePlugin*>& plugins) {
    Setting setting{references, plugins, 0, 0};
    value.eachReference(
        [](void* user, PluginRef& reference) {
            auto& at = *static_cast<Setting*>(user);
            if (at.next < at.references.size() && at.references[at.next].ordinal == at.ordinal)
                reference.plugin = at.plugins[at.next++];
            ++at.ordinal;
        },
        &setting);
}

}  // namespace Offline
