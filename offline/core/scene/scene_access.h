// What stands behind the reserved pointers of a KelmoScene.
#pragma once

#include "core/scene/scene_contents.h"
#include "kelmo/scene/scene.h"

namespace KUtils {

struct SceneAccess {
    static PluginManager* manager(const KelmoScene& scene) { return static_cast<PluginManager*>(scene.reserved8); }
    // The scene's own; null when the scene was made without a manager, and so without plugin types.
    static Offline::SceneContents* contents(const KelmoScene& scene) {
        return static_cast<Offline::SceneContents*>(scene.reserved16);
    }
    static void bind(KelmoScene& scene, PluginManager* manager, Offline::SceneContents* contents) {
        scene.reserved8 = manager;
        scene.reserved16 = contents;
        scene.reserved24 = nullptr;
    }
};

}  // namespace KUtils
