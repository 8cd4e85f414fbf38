// `_init` and `_uninit`: the two functions with a call frame of their own.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// Starts script access; None, or null with an Exception (MemoryError without memory) pending. Arguments are not read.
PyObject* init(PyObject* self, PyObject* args);

// Ends script access; always None.
PyObject* uninit(PyObject* self, PyObject* args);

}  // namespace KUtils::Python
