// PyRef owns one reference to a Python object. A PyObject* elsewhere is only looked at.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

class PyRef {
  public:
    PyRef() = default;
    // Takes over a new reference (null: a failed call, with its error pending).
    static PyRef steal(PyObject* object) { return PyRef(object); }
    // Takes a reference of its own to a borrowed object.
    static PyRef borrow(PyObject* object) {
        Py_XINCREF(object);
        return PyRef(object);
    }
    PyRef(PyRef&& other) noexcept : object(other.release()) {}
    PyRef& operator=(PyRef&& other) noexcept {
        PyObject* old = object;
        object = other.release();
        Py_XDECREF(old);
        return *this;
    }
    ~PyRef() { Py_XDECREF(object); }

    PyObject* get() const { return object; }
    explicit operator bool() const { return object != nullptr; }
    // Gives the reference away.
    PyObject* release() {
        PyObject* given = object;
        object = nullptr;
        return given;
    }

  private:
    explicit PyRef(PyObject* taken) : object(taken) {}

    PyObject* object = nullptr;
};

// None, True or False, with the reference that the caller gives to Python.
inline PyObject* newNone() {
    Py_INCREF(Py_None);
    return Py_None;
}
inline PyObject* newBool(bool value) {
    PyObject* object = value ? Py_True : Py_False;
    Py_INCREF(object);
    return object;
}

// A new string; a null text gives an empty one. Null with MemoryError pending when there is no memory.
inline PyObject* newString(const char* text) { return PyString_FromString(text != nullptr ? text : ""); }

}  // namespace KUtils::Python
