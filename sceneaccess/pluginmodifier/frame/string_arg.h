// Reading the string arguments of a call.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// The characters of item `index` of the argument tuple: a unicode item as UTF-8, any other as
// PyString_AsString gives it. Borrowed from the item, for the duration of the call; the text ends at its
// first zero. Null with a Python error pending when the item is missing or no string.
const char* convertedStringArg(PyObject* args, Py_ssize_t index);

// The same; a str, which is what scripts nearly always pass, is read in place.
inline const char* stringArg(PyObject* args, Py_ssize_t index) {
    const bool isStr = index < PyTuple_GET_SIZE(args) && PyString_Check(PyTuple_GET_ITEM(args, index));
    return isStr ? PyString_AS_STRING(PyTuple_GET_ITEM(args, index)) : convertedStringArg(args, index);
}

}  // namespace KUtils::Python
