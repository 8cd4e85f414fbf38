#include "scene/lookup.h"

#include "frame/problem.h"
#include "host/state.h"

namespace KUtils::Python {

namespace {

// Walks with the list's own cursor: it starts at the head, and is moved on before its node is used.
void startWalk(SceneList& scenes) { scenes.cursor = scenes.head; }

bool takeNext(SceneList& scenes, KelmoScene*& scene) {
    SceneNode* node = scenes.cursor;
    if (node == nullptr) return false;
    scenes.cursor = node->next;
    scene = node->scene;
    return true;
}

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

Plugin* lookupPlugin(const char* name, int& sceneIndex) {
    ensureInitialized();
    const SceneAccessState& state = *sceneAccessState;
    sceneIndex = -1;
    if (Plugin* plugin = findInMainScene(state, name)) return plugin;
    if (state.sceneList != nullptr) {
        KelmoScene* scene = nullptr;
        startWalk(*state.sceneList);
        while (takeNext(*state.sceneList, scene)) {
            ++sceneIndex;
            // A scene that could not be allocated is listed all the same.
            Plugin* plugin = scene != nullptr ? scene->findPlugin(name) : nullptr;
            if (plugin != nullptr) return plugin;
        }
    }
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
    startWalk(*scenes);
    for (int i = 0; i <= index; ++i) {
        if (!takeNext(*scenes, scene)) return nullptr;
    }
    return scene;
}

}  // namespace KUtils::Python
