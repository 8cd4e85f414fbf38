#include "param/fast_fill.h"

#include "param/python_conversions.h"

namespace KUtils::Python {

namespace {

bool readExact(PyObject* object, std::int32_t& number) {
    if (!PyInt_CheckExact(object)) return false;
    const long value = PyInt_AS_LONG(object);
    number = static_cast<std::int32_t>(value);
    return number == value;
}

bool readExact(PyObject* object, double& number) {
    if (PyFloat_CheckExact(object)) {
        number = PyFloat_AS_DOUBLE(object);
        return true;
    }
    if (!PyInt_CheckExact(object)) return false;
    number = static_cast<double>(PyInt_AS_LONG(object));
    return true;
}

bool readExact(PyObject* object, float& number) {
    double wide = 0.0;
    if (!readExact(object, wide)) return false;
    number = static_cast<float>(wide);
    return true;
}

bool isExactTuple(PyObject* object, Py_ssize_t size) {
    return PyTuple_CheckExact(object) && PyTuple_GET_SIZE(object) >= size;
}

bool readExact(PyObject* object, Vector& vector);

template <class T>
bool readThree(PyObject* object, T& x, T& y, T& z) {
    return isExactTuple(object, 3) && readExact(PyTuple_GET_ITEM(object, 0), x) &&
           readExact(PyTuple_GET_ITEM(object, 1), y) && readExact(PyTuple_GET_ITEM(object, 2), z);
}

bool readExact(PyObject* object, Vector& vector) { return readThree(object, vector.x, vector.y, vector.z); }
bool readExact(PyObject* object, Color& color) { return readThree(object, color.r, color.g, color.b); }

bool readExact(PyObject* object, AColor& color) {
    return isExactTuple(object, 2) && readExact(PyTuple_GET_ITEM(object, 0), color.color) &&
           readExact(PyTuple_GET_ITEM(object, 1), color.alpha);
}

bool readExact(PyObject* object, Matrix& matrix) {
    return readThree(object, matrix.columns[0], matrix.columns[1], matrix.columns[2]);
}

// As the walk hands it on: with a single-precision offset.
bool readExact(PyObject* object, Transform& transform) {
    return isExactTuple(object, 2) && readExact(PyTuple_GET_ITEM(object, 0), transform.matrix) &&
           readExact(PyTuple_GET_ITEM(object, 1), transform.offset);
}

bool readExact(PyObject* object, const char*& text) {
    if (!PyString_CheckExact(object)) return false;
    text = PyString_AS_STRING(object);
    return true;
}

// The value of an element that is exactly (code, value), else null.
PyObject* exactElement(PyObject* list, Py_ssize_t index, long code) {
    PyObject* element = PyList_GET_ITEM(list, index);
    if (!PyTuple_CheckExact(element) || PyTuple_GET_SIZE(element) != 2) return nullptr;
    PyObject* tag = PyTuple_GET_ITEM(element, 0);
    return PyInt_CheckExact(tag) && PyInt_AS_LONG(tag) == code ? PyTuple_GET_ITEM(element, 1) : nullptr;
}

// Reads every element and hands it to `store(value, index)`.
template <class T, class Store>
bool readAll(PyObject* list, std::int32_t code, Store store) {
    const auto count = static_cast<int>(PyList_GET_SIZE(list));
    for (int i = 0; i < count; ++i) {
        PyObject* value = exactElement(list, i, code);
        T read;
        if (value == nullptr || !readExact(value, read)) return false;
        store(read, i);
    }
    return true;
}

// Into the list's own array; not when there was no memory for it.
template <class T>
bool readInto(const ListView<T>& array, PyObject* list, std::int32_t code) {
    if (array.count != PyList_GET_SIZE(list)) return false;
    return readAll<T>(list, code, [data = array.data](const T& value, int i) { data[i] = value; });
}

}  // namespace

bool fastFill(KelmoPluginParameter& target, KelmoSettableParamInterface& settable, std::int32_t code, PyObject* list) {
    if (PyList_GET_SIZE(list) > INT32_MAX) return false;
    settable.setCount(static_cast<int>(PyList_GET_SIZE(list)));
    switch (code) {
        case PARAM_INT:
            return readInto(target.getIntList(0.0), list, code);
        case PARAM_FLOAT:
            return readInto(target.getFloatList(0.0), list, code);
        case PARAM_VECTOR:
            return readInto(target.getVectorList(0.0), list, code);
        case PARAM_COLOR:
            return readInto(target.getColorList(0.0), list, code);
        case PARAM_DOUBLE:
            return readAll<double>(list, code, [&](double value, int i) { settable.setDouble(value, i, 0.0); });
        case PARAM_ACOLOR:
            return readAll<AColor>(list, code, [&](const AColor& value, int i) { settable.setAColor(value, i, 0.0); });
        case PARAM_MATRIX:
            return readAll<Matrix>(list, code, [&](const Matrix& value, int i) { settable.setMatrix(value, i, 0.0); });
        case PARAM_TRANSFORM:
            return readAll<Transform>(list, code,
                                      [&](const Transform& value, int i) { settable.setTransform(value, i, 0.0); });
        case PARAM_STRING:
            return readAll<const char*>(list, code,
                                        [&](const char* value, int i) { settable.setString(value, i, 0.0); });
        default:
            return false;
    }
}

}  // namespace KUtils::Python
