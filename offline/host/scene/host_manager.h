// The host's plugin manager, as the module sees it: the main scene by name, and the two data members.
// `pluginManager` and `ownedParams` are the host's to make and to free.
#pragma once

#include <cstdint>

#include "kelmo/scene/host_plugin_manager.h"

namespace Offline {

class Host;

class HostManager final : public KUtils::HostPluginManager {
  public:
    explicit HostManager(Host& owner) : host(owner) {}

    KUtils::Plugin* findPlugin(const char* name) override;
    // Null: unknown type, empty name, or no memory. The three flags mean nothing here.
    KUtils::Plugin* createPlugin(const char* name, const char* typeName, bool& existed, bool flag1, bool flag2,
                                 bool flag3) override;
    void deletePlugin(KUtils::Plugin* plugin, bool flag) override;
    int beginScriptAccess() override;
    int endScriptAccess() override;

    // Counts anew; accesses that are still open go on counting unless all are over.
    void forgetAccesses(bool allAreOver);

    std::uint64_t accessesBegun = 0;
    std::uint64_t accessesEnded = 0;

  private:
    Host& host;
};

}  // namespace Offline
