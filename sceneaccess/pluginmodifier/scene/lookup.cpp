#include "scene/lookup.h"

#include "frame/problem.h"
#include "host/state.h"
#include "scene/search/scene_walk.h"

namespace KUtils::Python {

namespace {

Plugin* findInMainScene(const SceneAccessState& state, const char* name) {
    if (state.hostManager != nullptr) return state.hostManager->findPlugin(name);
    return state.mainScene != nullptr ? state.mainScene->findPlugin(name) : nullptr;
}

}  // namespace

PluginManager* currentPluginManager() {
    const SceneAccessState& state = *sceneAccessState;
    if (state.hostManager != nullptr) return state.hostManager->pluginManager;
    return state.mainScene != nullptr ? state.mainScene->getManager() : nullptr;
}

Plugin* findPlugin(const char* name, int& sceneIndex) {
    ensureInitialized();
    const SceneAccessState& state = *sceneAccessState;
    sceneIndex = -1;
    if (Plugin* plugin = findInMainScene(state, name)) return plugin;
    if (state.sceneList != nullptr) {
        KelmoScene* scene = nullptr;
        SceneWalk walk(*state.sceneList);
        while (walk.next(scene)) {
            ++sceneIndex;
            // A scene that could not be allocated is listed all the same.
            Plugin* plugin = scene != nullptr ? scene->findPlugin(name) : nullptr;
            if (plugin != nullptr) return plugin;
        }
    }
    return nullptr;
}

Plugin* findPlugin(const char* name) {
    int sceneIndex = -1;
    return findPlugin(name, sceneIndex);
}

Plugin* lookupPlugin(const char* name, int& sceneIndex) {
    if (Plugin* plugin = findPlugin(name, sceneIndex)) return plugin;
    throwError("The plugin \"%s\" doesn't exist.", name);
}

Plugin* lookupPlugin(const char* name) {
    int sceneIndex = -1;
    return lookupPlugin(name, sceneIndex);
}

KelmoScene* sceneAt(int index) {
    SceneList* scenes = sceneAccessState->sceneList;
    if (scenes == nullptr || index < 0 || index >= scenes->count) return nullptr;
    KelmoScene* scene = nullptr;
    SceneWalk walk(*scenes);
    for (int i = 0; i <= index; ++i) {
        if (!walk.next(scene)) return nullptr;
    }
    return scene;
}

}  // namespace KUtils::Python
