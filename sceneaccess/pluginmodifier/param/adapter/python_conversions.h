// Reading the Python objects of tagged values. Everything is borrowed, null is allowed everywhere, and no
// reference count changes.
//
// What cannot be read has a failure value (null, -1, -1.0) and leaves a Python error pending. Of several
// errors the first stays, and none is pending while a conversion runs the script's own code.
#pragma once

#include <cstdint>

#include "frame/python.h"

namespace KUtils::Python {

inline bool isList(PyObject* object) { return object != nullptr && PyList_Check(object); }

// A tagged value is a tuple of two items: a type code and a value.
inline bool isTagged(PyObject* object) {
    return object != nullptr && PyTuple_Check(object) && PyTuple_GET_SIZE(object) == 2;
}

// The value of a tagged value, else null with an error pending.
PyObject* taggedValue(PyObject* tagged);

// The type code of a tagged value, else -1 with an error pending.
std::int32_t taggedCode(PyObject* tagged);

// Item `index` of a tuple. Null is passed on.
PyObject* tupleItem(PyObject* tuple, Py_ssize_t index);

std::int32_t intOf(PyObject* object);
double doubleOf(PyObject* object);
inline float floatOf(PyObject* object) { return static_cast<float>(doubleOf(object)); }
const char* textOf(PyObject* object);

}  // namespace KUtils::Python
