// Duplicating a plugin with the values that it carries.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// The module's function of this name. The copy is made in the main scene; references stay references. Throws
// SceneAccessProblem, and nothing fails once the new plugin exists.
PyObject* duplicate(const char* sourceName, const char* newName);

}  // namespace KUtils::Python
