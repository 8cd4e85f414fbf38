// The renderer core's plugin manager: the catalogue, and the contents of the main scene.
#pragma once

#include "core/catalogue/catalogue.h"
#include "core/scene/scene_contents.h"
#include "kelmo/plugin/plugin_manager.h"

namespace Offline {

// Every PluginManager that reaches the core is one of these.
class OfflinePluginManager final : public KUtils::PluginManager {
  public:
    OfflinePluginManager() : contents(catalogue) {}

    KUtils::PluginDescriptor* getPluginDescriptor(const char* typeName) override;
    void enumPlugins(KUtils::EnumPluginCallback* callback) override;

    Catalogue catalogue;
    SceneContents contents;
};

}  // namespace Offline
