// A host without a scene list whose manager knows a handful of plugins, and the module's state over it.
#pragma once

#include <map>
#include <string>

#include "clone/stub_plugin.h"
#include "host/state.h"

class StubHost : public KUtils::HostPluginManager {
  public:
    StubHost() {
        state.hostManager = this;
        KUtils::Python::sceneAccessState = &state;
    }
    ~StubHost() { KUtils::Python::sceneAccessState = nullptr; }

    void add(const char* name, StubPlugin& plugin) {
        plugin.name = name;
        plugin.descriptor = &plugin.type;
        plugins[name] = &plugin;
    }

    KUtils::Plugin* findPlugin(const char* name) override {
        asked += std::string(asked.empty() ? "" : " ") + "find:" + name;
        const auto found = plugins.find(name);
        return found != plugins.end() ? found->second : nullptr;
    }
    KUtils::Plugin* createPlugin(const char*, const char*, bool&, bool, bool, bool) override { return nullptr; }
    void deletePlugin(KUtils::Plugin*, bool) override {}
    int beginScriptAccess() override { return 0; }
    int endScriptAccess() override { return 0; }

    std::string asked;

  private:
    KUtils::Python::SceneAccessState state{};
    std::map<std::string, StubPlugin*> plugins;
};
