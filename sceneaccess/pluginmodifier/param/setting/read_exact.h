// Reading Python objects whose type is exactly the built-in one: nothing can fail on the way and no code of a script
// runs. Everything is borrowed, no error is ever pending. False for any other object; the result is then half read.
#pragma once

#include <cstdint>

#include "frame/python.h"
#include "kelmo/param/types.h"

namespace KUtils::Python {

inline bool readExact(PyObject* object, std::int32_t& number) {
    if (!PyInt_CheckExact(object)) return false;
    const long value = PyInt_AS_LONG(object);
    number = static_cast<std::int32_t>(value);
    return number == value;
}

inline bool readExact(PyObject* object, double& number) {
    if (PyFloat_CheckExact(object)) {
        number = PyFloat_AS_DOUBLE(object);
        return true;
    }
    if (!PyInt_CheckExact(object)) return false;
    number = static_cast<double>(PyInt_AS_LONG(object));
    return true;
}

inline bool readExact(PyObject* object, float& number) {
    double wide = 0.0;
    if (!readExact(object, wide)) return false;
    number = static_cast<float>(wide);
    return true;
}

inline bool isExactTuple(PyObject* object, Py_ssize_t size) {
    return PyTuple_CheckExact(object) && PyTuple_GET_SIZE(object) >= size;
}

inline bool readExact(PyObject* object, Vector& vector);

// Said to be inline: the compiler looks harder at what is.
template <class T>
inline bool readThree(PyObject* object, T& x, T& y, T& z) {
    return isExactTuple(object, 3) && readExact(PyTuple_GET_ITEM(object, 0), x) &&
           readExact(PyTuple_GET_ITEM(object, 1), y) && readExact(PyTuple_GET_ITEM(object, 2), z);
}

inline bool readExact(PyObject* object, Vector& vector) { return readThree(object, vector.x, vector.y, vector.z); }
inline bool readExact(PyObject* object, Color& color) { return readThree(object, color.r, color.g, color.b); }

inline bool readExact(PyObject* object, AColor& color) {
    return isExactTuple(object, 2) && readExact(PyTuple_GET_ITEM(object, 0), color.color) &&
           readExact(PyTuple_GET_ITEM(object, 1), color.alpha);
}

inline bool readExact(PyObject* object, Matrix& matrix) {
    return readThree(object, matrix.columns[0], matrix.columns[1], matrix.columns[2]);
}

// As the walk hands it on: with a single-precision offset.
inline bool readExact(PyObject* object, Transform& transform) {
    return isExactTuple(object, 2) && readExact(PyTuple_GET_ITEM(object, 0), transform.matrix) &&
           readExact(PyTuple_GET_ITEM(object, 1), transform.offset);
}

inline bool readExact(PyObject* object, const char*& text) {
    if (!PyString_CheckExact(object)) return false;
    text = PyString_AS_STRING(object);
    return true;
}

// Takes (code, value) pairs of one code apart.
class ExactTag {
  public:
    explicit ExactTag(long wanted) : code(wanted) {}

    // The value of an object that is exactly (code, value), else null. A list can have null for an object.
    PyObject* valueOf(PyObject* object) {
        if (object == nullptr || !PyTuple_CheckExact(object) || PyTuple_GET_SIZE(object) != 2) return nullptr;
        PyObject* tag = PyTuple_GET_ITEM(object, 0);
        if (tag != known && !(PyInt_CheckExact(tag) && PyInt_AS_LONG(tag) == code)) return nullptr;
        known = tag;
        return PyTuple_GET_ITEM(object, 1);
    }

  private:
    long code;
    PyObject* known = nullptr;  // a tag with the code: Python has one object for each small number
};

}  // namespace KUtils::Python
