// A plugin of an offline scene.
//
// One block of the core's heap holds the plugin, its texture interfaces and its name. Made and freed by the
// SceneContents that it stands in, and by nobody else. A plugin that was deleted from its scene stays in memory until
// the scene ends, so that references to it can ask isAlive().
#pragma once

#include <cstdint>

#include "core/catalogue/plugin_type.h"
#include "core/plugin/parameter_list.h"
#include "kelmo/plugin/plugin.h"

namespace Offline {

class OfflinePlugin final : public KUtils::Plugin, public KUtils::PluginDescriptorInterface, public ParameterList {
  public:
    // A living plugin of this type; null when there is no memory. `hash` is the name table's.
    static OfflinePlugin* make(PluginType& type, const char* name, std::uint32_t hash);
    static void destroy(OfflinePlugin* plugin);

    // The offline plugin that a reference points at; every plugin that reaches the core is one.
    static OfflinePlugin* from(KUtils::PluginBase* plugin) { return static_cast<OfflinePlugin*>(plugin); }
    static const OfflinePlugin* from(const KUtils::PluginBase* plugin) {
        return static_cast<const OfflinePlugin*>(plugin);
    }

    PluginType& type() const { return *static_cast<PluginType*>(Plugin::descriptor); }
    bool isAlive() const { return alive; }
    // The DCC node that the plugin stands for when it differs from the name; else null. See SceneContents::setNode.
    const char* nodeName() const { return node; }

    // Gives the plugin a value without a report to the observer; false when it is refused: null, no name, not
    // declared, of a type that the declaration cannot take, or no memory.
    bool carry(KUtils::KelmoPluginParameter* value);

    // PluginBase
    KUtils::PluginInterface* getInterface(KUtils::InterfaceID id) override;
    KUtils::PluginDescriptor* getPluginDescriptor() override { return Plugin::descriptor; }
    // ParamHolder
    int setParameter(KUtils::KelmoPluginParameter* param) override;
    KUtils::KelmoPluginParameter* getParameter(const char* paramName) override;
    // PluginInterface: the embedded descriptor interface belongs to this plugin.
    KUtils::PluginBase* getPlugin() override { return static_cast<KUtils::NamedPlugin*>(this); }

  private:
    friend class SceneContents;
    friend class NameTable;

    OfflinePlugin(PluginType& type, const char* storedName, std::uint32_t hash);
    ~OfflinePlugin() override;

    OfflinePlugin* next = nullptr;  // in the scene's order, dead ones included
    char* node = nullptr;           // kelmo_malloc'ed
    std::uint32_t nameHash;
    bool alive = true;
};

}  // namespace Offline
