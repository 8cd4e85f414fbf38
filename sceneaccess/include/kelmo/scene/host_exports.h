// The functions that the host plug-in exports, by name.
#pragma once

#include "kelmo/scene/host_plugin_manager.h"
#include "kelmo/scene/scene_list.h"

namespace KUtils {

extern "C" {
using GetPluginManagerFunction = HostPluginManager* (*)();
using GetScenesFunction = SceneList* (*)();
using ExportFunction = Plugin* (*)(const char* nodeName);  // null: could not be exported
using PrintWarningFunction = void (*)(const char* message);
}

constexpr char HOST_GET_PLUGIN_MANAGER[] = "getPluginManager";
constexpr char HOST_GET_SCENES[] = "getScenes";
constexpr char HOST_EXPORT_TEXTURE[] = "exportTexture";
constexpr char HOST_EXPORT_MATERIAL[] = "exportMaterial";
constexpr char HOST_EXPORT_CAMERA[] = "exportCamera";
constexpr char HOST_EXPORT_NODE[] = "exportNode";
constexpr char HOST_PRINT_WARNING[] = "printWarning";

}  // namespace KUtils
