// The method table that a function of an extension module stands in.
#pragma once

#include "python.h"

// A new list of (name, flags, docstring), from the function's own entry to the end of its table; null with a
// TypeError pending when `function` is no function of an extension module.
PyObject* methodTable(PyObject* function);
