#include "scene/lifecycle.h"

#include <cstring>

#include "frame/problem.h"
#include "frame/py_ref.h"
#include "host/state.h"
#include "scene/lookup.h"

namespace KUtils::Python {

namespace {

// Keeps the first plugin of a type.
class FindPlugin final : public EnumPluginCallback {
  public:
    explicit FindPlugin(const char* typeName) : wanted(typeName) {}

    int process(Plugin* plugin) override {
        if (plugin == nullptr || std::strcmp(typeNameOrEmpty(plugin), wanted) != 0) return 1;
        found = plugin;
        return 0;
    }
    Plugin* plugin() const { return found; }

  private:
    const char* wanted;
    Plugin* found = nullptr;
};

}  // namespace

Plugin* createScenePlugin(const char* name, const char* typeName, bool& existed) {
    const SceneAccessState& state = *sceneAccessState;
    existed = false;
    if (state.hostManager != nullptr)
        return state.hostManager->createPlugin(name, typeName, existed, false, false, false);
    if (state.mainScene == nullptr) return nullptr;
    if (Plugin* plugin = state.mainScene->findPlugin(name)) {
        existed = true;
        return plugin;
    }
    return state.mainScene->newPlugin(typeName, name, 0);
}

bool isSingleInstance(Plugin* plugin) { return plugin->getInterface(UNIQUE_PLUGIN_INTERFACE_ID) != nullptr; }

const char* typeNameOrEmpty(Plugin* plugin) {
    const char* name = pluginTypeName(plugin);
    return name != nullptr ? name : "";
}

PyObject* create(const char* typeName, const char* name) {
    FindPlugin search(typeName);
    if (PluginManager* manager = currentPluginManager()) manager->enumPlugins(&search);
    if (search.plugin() != nullptr && isSingleInstance(search.plugin())) {
        throwWarning("Only one instance of type \\\"%s\\\" can exist.", typeName);
    }
    bool existed = false;
    const Plugin* plugin = createScenePlugin(name, typeName, existed);
    if (plugin == nullptr) {
        throwWarning("A plugin \\\"%s\\\" of type \\\"%s\\\" could not be created.", name, typeName);
    }
    if (existed) throwWarning("A plugin \\\"%s\\\" already exists.", name);
    return newString(name);
}

PyObject* deletePlugin(const char* name) {
    int sceneIndex = -1;
    Plugin* plugin = lookupPlugin(name, sceneIndex);
    const SceneAccessState& state = *sceneAccessState;
    if (sceneIndex >= 0) {
        sceneAt(sceneIndex)->deletePlugin(plugin, true);
    } else if (state.hostManager != nullptr) {
        state.hostManager->deletePlugin(plugin, true);
    } else {
        state.mainScene->deletePlugin(plugin, true);
    }
    return newNone();
}

PyObject* getPluginType(const char* name) { return newString(typeNameOrEmpty(lookupPlugin(name))); }

bool pluginExists(const char* name) { return findPlugin(name) != nullptr; }

bool unique(const char* name) { return isSingleInstance(lookupPlugin(name)); }

}  // namespace KUtils::Python
