// What stands in one scene: its plugins in the order of creation, the values that the scene made for them, its
// deferred records and its header.
//
// Ownership: the contents own plugins and the values given to own(); both live until clear() or the end. A plugin
// that was removed stays in memory, dead, and is neither found, enumerated nor saved.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/catalogue/catalogue.h"
#include "core/plugin/offline_plugin.h"
#include "core/scene/deferred_store.h"
#include "core/scene/name_table.h"
#include "kelmo/plugin/plugin_manager.h"

namespace Offline {

// The first line of a scene file, kept as it was. What is empty is not written.
struct SceneHeader {
    std::string up;      // "x", "y" or "z"
    std::string unit;    // metres a scene unit, as the number was written
    std::string source;  // the file that the scene was translated from
};

class SceneContents {
  public:
    // References in an extra scene fall back on `parent`, the main scene's contents (null: these are the main
    // ones). Catalogue and parent must outlive the contents.
    explicit SceneContents(Catalogue& catalogue, SceneContents* parent = nullptr);
    SceneContents(const SceneContents&) = delete;
    SceneContents& operator=(const SceneContents&) = delete;
    ~SceneContents();

    Catalogue& catalogue() const { return types; }
    SceneContents* parent() const { return main; }

    // A new plugin at the end of the order; null: empty or taken name, or no memory. `type` is the catalogue's.
    OfflinePlugin* create(PluginType& type, const char* name);
    OfflinePlugin* find(const char* name) const;  // null: none (also for a null name)
    // False when it is no living plugin of these contents.
    bool remove(OfflinePlugin* plugin);

    // Walking through the living plugins, in order; null at the end. A plugin may be removed, and others created,
    // between two steps.
    OfflinePlugin* first() const;
    static OfflinePlugin* next(const OfflinePlugin* plugin);
    // The plugin that was created last, alive or not; null: none ever was.
    OfflinePlugin* last() const { return tail; }
    std::size_t count() const { return names.size(); }
    // Calls back for the living plugins that stood in the scene when the walk began; stops at zero.
    void enumerate(KUtils::EnumPluginCallback& callback) const;

    // Says which DCC node a plugin of these contents stands for; once a plugin. False: no memory.
    bool setNode(OfflinePlugin& plugin, const char* node);
    // The living plugin that stands for this DCC node: the first whose node it is, else the one of this name; or null.
    OfflinePlugin* findByNode(const char* node) const;
    // The same among those for which accepts(plugin) is true: several kinds of plugins can stand for one node.
    template <class Accepts>
    OfflinePlugin* findByNode(const char* node, Accepts accepts) const;

    // Takes over a value object: destroyed through its deleting destructor when the contents end.
    void own(KUtils::KelmoPluginParameter* value);
    std::size_t ownedValues() const { return values.size(); }

    SceneHeader& header() { return head; }
    DeferredStore& deferred() { return waiting; }

    // Frees values, then plugins, and forgets deferred records and header.
    void clear();

  private:
    Catalogue& types;
    SceneContents* main;
    NameTable names;
    OfflinePlugin* headPlugin = nullptr;
    OfflinePlugin* tail = nullptr;
    std::unordered_map<std::string_view, std::vector<OfflinePlugin*>> nodes;
    std::vector<KUtils::KelmoPluginParameter*> values;
    SceneHeader head;
    DeferredStore waiting;
};

template <class Accepts>
OfflinePlugin* SceneContents::findByNode(const char* node, Accepts accepts) const {
    if (node == nullptr) return nullptr;
    const auto found = nodes.find(node);
    if (found != nodes.end()) {
        for (OfflinePlugin* plugin : found->second) {
            if (plugin->isAlive() && accepts(*plugin)) return plugin;
        }
    }
    OfflinePlugin* named = find(node);
    return named != nullptr && accepts(*named) ? named : nullptr;
}

}  // namespace Offline
