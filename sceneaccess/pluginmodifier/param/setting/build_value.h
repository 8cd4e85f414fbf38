// Python objects of parameter values. Each function returns a new reference, or null with a Python error pending.
#pragma once

#include "frame/python.h"
#include "kelmo/param/param_type.h"
#include "kelmo/param/types.h"

namespace KUtils::Python {

// (tag, value); takes over the reference to `value`, and gives null for null.
PyObject* makeTagged(int tag, PyObject* value);

PyObject* buildFloats(const Vector& value);          // (x, y, z)
PyObject* buildFloats(const Color& value);           // (r, g, b)
PyObject* buildFloats(const AColor& value);          // (r, g, b, a)
PyObject* buildFloats(const Matrix& value);          // one tuple a column
PyObject* buildFloats(const TraceTransform& value);  // (matrix, offset), the offset in double precision
PyObject* buildFloats(const Transform& value);

// (plugin, output), both str.
PyObject* buildOutputReference(const char* plugin, const char* output);

}  // namespace KUtils::Python
