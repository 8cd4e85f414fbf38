// Reading: the same strings, the host's own virtual calls, the same pair; lists straight from a C array.
#include "floors.h"
#include "host.h"

// Order as above: the interpreter's header comes first.
#include <vector>

namespace Bench {

using namespace KUtils;

namespace {

std::vector<std::int32_t> someInts;
std::vector<float> someFloats;
std::vector<Vector> someVectors;

// (code, value); takes the value over.
PyObject* pair(long code, PyObject* value) {
    PyObject* tag = PyInt_FromLong(code);
    PyObject* tuple = value != nullptr && tag != nullptr ? PyTuple_New(2) : nullptr;
    if (tuple == nullptr) {
        Py_XDECREF(tag);
        Py_XDECREF(value);
        return nullptr;
    }
    PyTuple_SET_ITEM(tuple, 0, tag);
    PyTuple_SET_ITEM(tuple, 1, value);
    return tuple;
}

PyObject* object(std::int32_t value) { return PyInt_FromLong(value); }
PyObject* object(float value) { return PyFloat_FromDouble(value); }

PyObject* three(float x, float y, float z) {
    PyObject* items[] = {object(x), object(y), object(z)};
    PyObject* tuple = PyTuple_New(3);
    for (int i = 0; i < 3; ++i) {
        if (tuple != nullptr) {
            PyTuple_SET_ITEM(tuple, i, items[i]);
        } else {
            Py_XDECREF(items[i]);
        }
    }
    return tuple;
}

PyObject* object(const Vector& value) { return three(value.x, value.y, value.z); }

template <class T>
PyObject* listOf(long code, const std::vector<T>& values) {
    const auto count = static_cast<Py_ssize_t>(values.size());
    PyObject* list = PyList_New(count);
    if (list == nullptr) return nullptr;
    for (Py_ssize_t i = 0; i < count; ++i) {
        PyObject* element = object(values[static_cast<std::size_t>(i)]);
        if (element == nullptr) {
            Py_DECREF(list);
            return nullptr;
        }
        PyList_SET_ITEM(list, i, element);
    }
    return pair(code, list);
}

// Keeps what a list of numbers, or of points, holds, as a C array.
template <class T, class Read>
PyObject* use(PyObject* args, std::vector<T>& values, Read read) {
    PyObject* list = nullptr;
    if (!PyArg_ParseTuple(args, "O!", &PyList_Type, &list)) return nullptr;
    values.clear();
    values.reserve(static_cast<std::size_t>(PyList_GET_SIZE(list)));
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(list); ++i) values.push_back(read(PyList_GET_ITEM(list, i)));
    if (PyErr_Occurred() != nullptr) return nullptr;
    Py_RETURN_NONE;
}

float number(PyObject* object) { return static_cast<float>(PyFloat_AsDouble(object)); }

}  // namespace

PyObject* exists(PyObject*, PyObject* args) {
    const char* name = textArgument(args, 0);
    if (name == nullptr) return nullptr;
    return PyBool_FromLong(manager()->findPlugin(name) != nullptr);
}

PyObject* getScalar(PyObject*, PyObject* args) {
    KelmoPluginParameter* value = valueArgument(args);
    if (value == nullptr) return nullptr;
    const int code = value->getType(-1, 0.0);
    if (value->getCount(0.0) != -1) return PyErr_Format(PyExc_TypeError, "a list");
    switch (code) {
        case PARAM_INT:
            return pair(code, object(static_cast<std::int32_t>(value->getInt(0, 0.0))));
        case PARAM_FLOAT:
            return pair(code, object(value->getFloat(0, 0.0)));
        case PARAM_VECTOR:
            return pair(code, object(value->getVector(0, 0.0)));
        case PARAM_COLOR: {
            const Color color = value->getColor(0, 0.0);
            return pair(code, three(color.r, color.g, color.b));
        }
        case PARAM_STRING:
            return pair(code, PyString_FromString(value->getString(0, 0.0)));
        default:
            return PyErr_Format(PyExc_TypeError, "a value of type %d", code);
    }
}

PyObject* useInts(PyObject*, PyObject* args) {
    return use(args, someInts, [](PyObject* item) { return static_cast<std::int32_t>(PyInt_AsLong(item)); });
}

PyObject* useFloats(PyObject*, PyObject* args) { return use(args, someFloats, number); }

PyObject* useVectors(PyObject*, PyObject* args) {
    return use(args, someVectors, [](PyObject* item) {
        Vector vector{};
        PyArg_ParseTuple(item, "fff", &vector.x, &vector.y, &vector.z);
        return vector;
    });
}

PyObject* ints(PyObject*, PyObject*) { return listOf(PARAM_INT, someInts); }
PyObject* floats(PyObject*, PyObject*) { return listOf(PARAM_FLOAT, someFloats); }
PyObject* vectors(PyObject*, PyObject*) { return listOf(PARAM_VECTOR, someVectors); }

}  // namespace Bench
