#include "param/adapter/python_conversions.h"

#include "frame/numbers.h"

namespace KUtils::Python {

namespace {

// Puts an error that was pending away while another conversion runs, and back afterwards.
class EarlierError {
  public:
    EarlierError() { PyErr_Fetch(&type, &value, &traceback); }
    EarlierError(const EarlierError&) = delete;
    EarlierError& operator=(const EarlierError&) = delete;
    ~EarlierError() {
        if (type != nullptr) PyErr_Restore(type, value, traceback);
    }

  private:
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
};

}  // namespace

PyObject* taggedValue(PyObject* tagged) {
    if (isTagged(tagged)) return PyTuple_GET_ITEM(tagged, 1);
    if (PyErr_Occurred() == nullptr) {
        PyErr_Format(PyExc_TypeError, "a (type code, value) pair is expected, not %.200s",
                     tagged != nullptr ? Py_TYPE(tagged)->tp_name : "<NULL>");
    }
    return nullptr;
}

std::int32_t taggedCode(PyObject* tagged) {
    return taggedValue(tagged) != nullptr ? intOf(PyTuple_GET_ITEM(tagged, 0)) : -1;
}

PyObject* tupleItem(PyObject* tuple, Py_ssize_t index) {
    if (tuple == nullptr) return nullptr;
    if (PyTuple_Check(tuple) && index < PyTuple_GET_SIZE(tuple)) return PyTuple_GET_ITEM(tuple, index);
    if (PyErr_Occurred() != nullptr) return nullptr;
    if (PyTuple_Check(tuple)) {
        PyErr_SetString(PyExc_IndexError, "tuple index out of range");
    } else {
        PyErr_Format(PyExc_TypeError, "a tuple is expected, not %.200s", Py_TYPE(tuple)->tp_name);
    }
    return nullptr;
}

std::int32_t intOf(PyObject* object) {
    if (object == nullptr) return -1;
    if (PyInt_CheckExact(object)) {
        const long number = PyInt_AS_LONG(object);
        if (number == static_cast<std::int32_t>(number)) return static_cast<std::int32_t>(number);
    }
    const EarlierError earlier;
    return asInt32(object);
}

double doubleOf(PyObject* object) {
    if (object == nullptr) return -1.0;
    if (PyFloat_CheckExact(object)) return PyFloat_AS_DOUBLE(object);
    const EarlierError earlier;
    return PyFloat_AsDouble(object);
}

const char* textOf(PyObject* object) {
    if (object == nullptr) return nullptr;
    const EarlierError earlier;
    return PyString_AsString(object);
}

}  // namespace KUtils::Python
