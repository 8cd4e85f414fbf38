// The floors as Python functions: each is the least that a C function must do for the job of a module function.
#pragma once

#include "python.h"

namespace Bench {

// Calls: exists(name)
PyObject* exists(PyObject* self, PyObject* args);

// Reading: get_scalar(plugin, param); use_list(list of numbers or points), then ints(), floats(), vectors() from it.
PyObject* getScalar(PyObject* self, PyObject* args);
PyObject* useInts(PyObject* self, PyObject* args);
PyObject* useFloats(PyObject* self, PyObject* args);
PyObject* useVectors(PyObject* self, PyObject* args);
PyObject* ints(PyObject* self, PyObject* args);
PyObject* floats(PyObject* self, PyObject* args);
PyObject* vectors(PyObject* self, PyObject* args);

// Writing: set_int(plugin, param, tagged) and so on; read_ints(tagged) and so on, into an array.
PyObject* setInt(PyObject* self, PyObject* args);
PyObject* setFloat(PyObject* self, PyObject* args);
PyObject* setVector(PyObject* self, PyObject* args);
PyObject* setColor(PyObject* self, PyObject* args);
PyObject* setString(PyObject* self, PyObject* args);
PyObject* readInts(PyObject* self, PyObject* args);
PyObject* readFloats(PyObject* self, PyObject* args);
PyObject* readVectors(PyObject* self, PyObject* args);

// Copying: copy_values(count), and free_copies() for what it made; share_values(plugin, new name); copy_array(bytes);
// clone(plugin, param); clone_is_equal(plugin, param).
PyObject* copyValues(PyObject* self, PyObject* args);
PyObject* shareValues(PyObject* self, PyObject* args);
PyObject* freeCopies(PyObject* self, PyObject* args);
PyObject* copyArray(PyObject* self, PyObject* args);
PyObject* cloneValue(PyObject* self, PyObject* args);
PyObject* cloneIsEqual(PyObject* self, PyObject* args);

// Searching: fill(type, names); touch_names(); plain(pattern), fnmatch(pattern), re2(pattern).
PyObject* fill(PyObject* self, PyObject* args);
PyObject* touchNames(PyObject* self, PyObject* args);
PyObject* searchPlain(PyObject* self, PyObject* args);
PyObject* searchFnmatch(PyObject* self, PyObject* args);
PyObject* searchRe2(PyObject* self, PyObject* args);

// Sets: set_time(contender, job, keys) -> seconds an operation.
PyObject* setTime(PyObject* self, PyObject* args);

}  // namespace Bench
