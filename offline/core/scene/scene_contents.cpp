#include "core/scene/scene_contents.h"

#include <cstring>

#include "core/base/counters.h"

namespace Offline {
SceneContents::SceneContents(Catalogue& catalogue, SceneContents* parent) : types(catalogue), main(parent) {}

SceneContents::~SceneContents() { clear(); }

OfflinePlugin* SceneContents::create(PluginType& type, const char* name) {
    if (name == nullptr || *name == '\0') return nullptr;
    const std::uint32_t hash = NameTable::hash(name);
    if (names.find(name, hash) != nullptr) return nullptr;
    OfflinePlugin* plugin = OfflinePlugin::make(type, name, hash);
    if (plugin == nullptr) return nullptr;
    (tail != nullptr ? tail->next : headPlugin) = plugin;
    tail = plugin;
    names.insert(plugin);
    return plugin;
}

OfflinePlugin* SceneContents::find(const char* name) const {
    return name != nullptr ? names.find(name, NameTable::hash(name)) : nullptr;
}

bool SceneContents::remove(OfflinePlugin* plugin) {
    if (plugin == nullptr || !plugin->alive || find(plugin->name) != plugin) return false;
    names.erase(plugin);
    plugin->alive = false;
    return true;
}

OfflinePlugin* SceneContents::first() const {
    return headPlugin == nullptr || headPlugin->alive ? headPlugin : next(headPlugin);
}

OfflinePlugin* SceneContents::next(const OfflinePlugin* plugin) {
    OfflinePlugin* following = plugin->next;
    while (following != nullptr && !following->alive) following = following->next;
    return following;
}

void SceneContents::enumerate(KUtils::EnumPluginCallback& callback) const {
    const OfflinePlugin* const end = tail;
    for (OfflinePlugin* plugin = headPlugin; plugin != nullptr; plugin = plugin->next) {
        if (plugin->alive && callback.process(plugin) == 0) return;
        if (plugin == end) return;
    }
}

bool SceneContents::setNode(OfflinePlugin& plugin, const char* node) {
    if (plugin.node != nullptr) return false;
    const std::size_t bytes = std::strlen(node) + 1;
    plugin.node = static_cast<char*>(kelmo_malloc(bytes));
    if (plugin.node == nullptr) return false;
    std::memcpy(plugin.node, node, bytes);
    nodes[plugin.node].push_back(&plugin);
    return true;
}

OfflinePlugin* SceneContents::findByNode(const char* node) const {
    return findByNode(node, [](const OfflinePlugin&) { return true; });
}

void SceneContents::own(KUtils::KelmoPluginParameter* value) {
    if (value != nullptr) values.push_back(value);
}

void SceneContents::clear() {
    for (KUtils::KelmoPluginParameter* value : values) delete value;
    values = {};
    names.clear();
    nodes.clear();
    while (headPlugin != nullptr) {
        OfflinePlugin* following = headPlugin->next;
        OfflinePlugin::destroy(headPlugin);
        headPlugin = following;
    }
    tail = nullptr;
    head = SceneHeader{};
    waiting.clear();
}

}  // namespace Offline
