// Questions about parameters that do not read their values.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// The module's functions of the same names; each throws SceneAccessProblem.

// A nonzero flag: the names of the values that the plugin carries, in the core's order; zero: of all parameters that
// its type declares. A flag that is no int counts as nonzero.
PyObject* getPluginParams(const char* plugin, PyObject* flag);
PyObject* getTypeParams(const char* typeName);

// (declared type code as a long, True for a list).
PyObject* getParamType(const char* plugin, const char* param);
PyObject* isOutputParam(const char* plugin, const char* param);
bool paramExists(const char* plugin, const char* param);

}  // namespace KUtils::Python
