// What the wrapper's parts share: the host's manager, and the values that the wrapper keeps for the plugins.
//
// Ownership: the manager and the plugins are the host's. Errors: std::runtime_error.
#pragma once

#include <memory>
#include <string>

#include "kelmo/plugin/plugin.h"
#include "kelmo/scene/host_plugin_manager.h"

namespace BenchScene {

// The connected host's manager.
KUtils::HostPluginManager& manager();

// The plugin of this name.
KUtils::Plugin& pluginOf(const std::string& name);

// Gives a plugin a value, which is kept for it until the next one of that name.
void give(KUtils::Plugin& plugin, std::unique_ptr<KUtils::KelmoPluginParameter> value);

}  // namespace BenchScene
