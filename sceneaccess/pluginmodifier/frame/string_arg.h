// Reading the string arguments of a call.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// The characters of item `index` of the argument tuple: a unicode item as UTF-8, any other as
// PyString_AsString gives it. Borrowed from the item, for the duration of the call; the text ends at its
// first zero. Null with a Python error pending when the item is missing or no string.
const char* stringArg(PyObject* args, Py_ssize_t index);

}  // namespace KUtils::Python
