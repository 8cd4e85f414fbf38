// Reading a parameter.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// The module's function of the same name: the carried value, else the declared default, as a tagged pair; None when
// there is neither. Null without a Python error for a value that has no Python shape. Throws SceneAccessProblem.
PyObject* getParam(const char* pluginName, const char* paramName);

}  // namespace KUtils::Python
