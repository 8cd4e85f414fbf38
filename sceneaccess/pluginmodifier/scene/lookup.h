// Finding plugins and scenes: the main scene first, then the extra scenes, newest first.
#pragma once

#include "kelmo/plugin/plugin_manager.h"
#include "kelmo/scene/scene.h"

namespace KUtils::Python {

// The manager that enumerations and type lookups go to, the main scene's; null when there is no main scene.
PluginManager* currentPluginManager();

// The plugin of this name, or null. `sceneIndex` becomes -1 for the main scene, else the position of the extra scene
// that holds it. Throws when the module is not initialised. Moves the scene list's cursor.
Plugin* findPlugin(const char* name, int& sceneIndex);
Plugin* findPlugin(const char* name);

// The same, but throws when no scene has it.
Plugin* lookupPlugin(const char* name, int& sceneIndex);
Plugin* lookupPlugin(const char* name);

// The extra scene at this position from the head of the list; null outside the list. Moves the cursor.
KelmoScene* sceneAt(int index);

}  // namespace KUtils::Python
