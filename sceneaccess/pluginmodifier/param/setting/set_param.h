// Giving a plugin's parameter a new value.
#pragma once

#include "frame/python.h"
#include "kelmo/scene/pointer_set.h"

namespace KUtils::Python {

// The module's function of this name. Throws SceneAccessProblem; until the plugin has taken the value the scene
// is as it was. A value that Python could not convert is set as its failure value, and then the problem is a warning.
PyObject* setParam(const char* pluginName, const char* paramName, PyObject* value);

// The set of the values that the host frees; null when there is none.
PointerSet* ownedParams();

}  // namespace KUtils::Python
