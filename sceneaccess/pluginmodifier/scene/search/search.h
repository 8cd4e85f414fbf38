// Finding plugins of the main scene by a pattern with wildcards.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// A new list of the names of the plugins whose name, or whose type name, matches, in enumeration order.
PyObject* findByName(const char* pattern);
PyObject* findByType(const char* pattern);

}  // namespace KUtils::Python
