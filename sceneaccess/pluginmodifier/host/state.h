// SceneAccessState: what the module knows of its host while it is initialised.
//
// The host objects belong to the host. The record lives in the core's heap; `_init` makes it, `_uninit` and a
// failing `_init` free it.
#pragma once

#include "kelmo/scene/host_exports.h"

namespace KUtils::Python {

using LibraryHandle = void*;

struct SceneAccessState {
    LibraryHandle hostLibrary;
    GetPluginManagerFunction getPluginManagerFn;
    ExportFunction exportTextureFn;
    ExportFunction exportMaterialFn;
    ExportFunction exportCameraFn;
    ExportFunction exportNodeFn;
    GetScenesFunction getScenesFn;
    PrintWarningFunction printWarningFn;  // null: the host cannot print warnings
    HostPluginManager* hostManager;
    KelmoScene* mainScene;            // the scene without a host manager; nobody sets it
    PointerSet* fallbackOwnedParams;  // the owned values without a host manager; nobody sets it
    SceneList* sceneList;
    void* reserved;
};

static_assert(sizeof(SceneAccessState) == 13 * sizeof(void*), "thirteen pointer-sized fields");

// Null while the module is not initialised.
extern SceneAccessState* sceneAccessState;

// Throws the problem that tells the user where the script belongs.
[[noreturn]] void throwNotInitialized();

// The same, unless the module is initialised.
inline void ensureInitialized() {
    if (sceneAccessState == nullptr) throwNotInitialized();
}

}  // namespace KUtils::Python
