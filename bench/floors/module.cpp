// benchfloors: the floors, and sets and matchers to compare with, as a Python 2.7 module.
#include "floors.h"
#include "host.h"

namespace Bench {

namespace {

PyObject* connect(PyObject*, PyObject* args) {
    const char* path = textArgument(args, 0);
    if (path == nullptr || !connectHost(path)) return nullptr;
    Py_RETURN_NONE;
}

PyObject* processorSeconds(PyObject*, PyObject*) { return PyFloat_FromDouble(processorTime()); }

PyMethodDef functions[] = {
    {"connect", connect, METH_VARARGS, "connect(path): takes the manager of the loaded host library."},
    {"processor_time", processorSeconds, METH_NOARGS, "processor_time() -> seconds that this thread has used."},
    {"exists", exists, METH_VARARGS, "exists(plugin) -> whether the host finds it."},
    {"get_scalar", getScalar, METH_VARARGS, "get_scalar(plugin, param) -> (code, value)."},
    {"use_ints", useInts, METH_VARARGS, "use_ints(numbers): what ints() gives."},
    {"use_floats", useFloats, METH_VARARGS, "use_floats(numbers): what floats() gives."},
    {"use_vectors", useVectors, METH_VARARGS, "use_vectors(points): what vectors() gives."},
    {"ints", ints, METH_VARARGS, "ints() -> (code, list), from a C array."},
    {"floats", floats, METH_VARARGS, "floats() -> (code, list), from a C array."},
    {"vectors", vectors, METH_VARARGS, "vectors() -> (code, list), from a C array."},
    {"set_int", setInt, METH_VARARGS, "set_int(plugin, param, tagged): sets one new object."},
    {"set_float", setFloat, METH_VARARGS, "set_float(plugin, param, tagged): sets one new object."},
    {"set_vector", setVector, METH_VARARGS, "set_vector(plugin, param, tagged): sets one new object."},
    {"set_color", setColor, METH_VARARGS, "set_color(plugin, param, tagged): sets one new object."},
    {"set_string", setString, METH_VARARGS, "set_string(plugin, param, tagged): sets one new object."},
    {"read_ints", readInts, METH_VARARGS, "read_ints(tagged): into a new C array."},
    {"read_floats", readFloats, METH_VARARGS, "read_floats(tagged): into a new C array."},
    {"read_vectors", readVectors, METH_VARARGS, "read_vectors(tagged): into a new C array."},
    {"copy_values", copyValues, METH_VARARGS, "copy_values(count): malloc and memcpy for each; the copies stay."},
    {"free_copies", freeCopies, METH_NOARGS, "free_copies(): frees them."},
    {"share_values", shareValues, METH_VARARGS, "share_values(plugin, new): the host's part of a duplication."},
    {"copy_array", copyArray, METH_VARARGS, "copy_array(bytes): malloc, memcpy, free."},
    {"clone", cloneValue, METH_VARARGS, "clone(plugin, param): the carried value clones itself; the clone is freed."},
    {"clone_is_equal", cloneIsEqual, METH_VARARGS, "clone_is_equal(plugin, param) -> whether a clone has the points."},
    {"fill", fill, METH_VARARGS, "fill(type, names): makes the plugins."},
    {"touch_names", touchNames, METH_VARARGS, "touch_names(): an enumeration that reads each name's first byte."},
    {"plain", searchPlain, METH_VARARGS, "plain(pattern) -> names, by the textbook's scan."},
    {"fnmatch", searchFnmatch, METH_VARARGS, "fnmatch(pattern) -> names, by the C library."},
    {"re2", searchRe2, METH_VARARGS, "re2(pattern) -> names, by a regular expression."},
    {"set_time", setTime, METH_VARARGS, "set_time(set, job, keys) -> seconds an operation."},
    {nullptr, nullptr, 0, nullptr},
};

}  // namespace

}  // namespace Bench

PyMODINIT_FUNC initbenchfloors() { Py_InitModule("benchfloors", Bench::functions); }
