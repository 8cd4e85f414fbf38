// Whether a list value of Python can be walked: lists can stand in themselves.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// False when a list stands inside itself, lies deeper than MAX_LIST_NESTING levels, or when the inner lists have
// more than MAX_NESTED_ELEMENTS elements together. Looks at every list once, however often it stands in the value.
bool hasBoundedNesting(PyObject* list);

}  // namespace KUtils::Python
