#include "param/setting/build_value.h"

#include "frame/py_ref.h"

namespace KUtils::Python {

namespace {

// A tuple of objects that are all new; nothing is leaked when one of them could not be made.
template <class... Objects>
PyObject* tupleOf(Objects... objects) {
    PyObject* items[] = {objects...};
    PyObject* tuple = ((objects != nullptr) && ...) ? PyTuple_New(sizeof...(objects)) : nullptr;
    Py_ssize_t index = 0;
    for (PyObject* item : items) {
        if (tuple != nullptr) {
            PyTuple_SET_ITEM(tuple, index++, item);
        } else {
            Py_XDECREF(item);
        }
    }
    return tuple;
}

bool setNumber(PyObject* tuple, Py_ssize_t index, double number) {
    PyObject* object = PyFloat_FromDouble(number);
    PyTuple_SET_ITEM(tuple, index, object);
    return object != nullptr;
}

// Numbers cannot be part of a cycle, so the collector need not visit the tuple; it would find out itself later.
template <class... Numbers>
PyObject* floatsOf(Numbers... numbers) {
    PyObject* tuple = PyTuple_New(sizeof...(numbers));
    if (tuple == nullptr) return nullptr;
    Py_ssize_t index = 0;
    if (!(setNumber(tuple, index++, numbers) && ...)) {
        Py_DECREF(tuple);
        return nullptr;
    }
    _PyObject_GC_UNTRACK(tuple);
    return tuple;
}

}  // namespace

PyObject* makeTagged(int tag, PyObject* value) {
    return value != nullptr ? tupleOf(PyInt_FromLong(tag), value) : nullptr;
}

PyObject* buildFloats(const Vector& value) { return floatsOf(value.x, value.y, value.z); }

PyObject* buildFloats(const Color& value) { return floatsOf(value.r, value.g, value.b); }

PyObject* buildFloats(const AColor& value) {
    return floatsOf(value.color.r, value.color.g, value.color.b, value.alpha);
}

PyObject* buildFloats(const Matrix& value) {
    return tupleOf(buildFloats(value.columns[0]), buildFloats(value.columns[1]), buildFloats(value.columns[2]));
}

PyObject* buildFloats(const TraceTransform& value) {
    return tupleOf(buildFloats(value.matrix), floatsOf(value.offset[0], value.offset[1], value.offset[2]));
}

PyObject* buildFloats(const Transform& value) { return tupleOf(buildFloats(value.matrix), buildFloats(value.offset)); }

PyObject* buildOutputReference(const char* plugin, const char* output) {
    return tupleOf(newString(plugin), newString(output));
}

}  // namespace KUtils::Python
