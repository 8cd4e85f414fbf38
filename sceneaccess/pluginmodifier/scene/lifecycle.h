// Creating, deleting and asking for single plugins.
#pragma once

#include "frame/python.h"
#include "kelmo/plugin/plugin.h"

namespace KUtils::Python {

// Makes a plugin in the main scene. `existed`: the name was taken, and the result is the plugin that has it. Null:
// refused.
Plugin* createScenePlugin(const char* name, const char* typeName, bool& existed);

// True when only one plugin of this plugin's type may exist.
bool isSingleInstance(Plugin* plugin);

// The type's name; empty for a plugin without a descriptor.
const char* typeNameOrEmpty(Plugin* plugin);

// The module's functions of the same names; each throws SceneAccessProblem.
PyObject* create(const char* typeName, const char* name);
PyObject* deletePlugin(const char* name);
PyObject* getPluginType(const char* name);
bool pluginExists(const char* name);
bool unique(const char* name);

}  // namespace KUtils::Python
