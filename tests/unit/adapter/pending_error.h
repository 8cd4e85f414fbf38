// The pending Python error of a test, as text.
#pragma once

#include <string>

#include "frame/py_ref.h"

// "Type: text", taken away; empty when there is none.
inline std::string takeError() {
    using KUtils::Python::PyRef;
    PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    if (type == nullptr) return "";
    const PyRef heldType = PyRef::steal(type), heldValue = PyRef::steal(value), heldTraceback = PyRef::steal(traceback);
    const PyRef text = PyRef::steal(heldValue ? PyObject_Str(heldValue.get()) : nullptr);
    const std::string name = PyExceptionClass_Name(type);
    const std::string plain = name.compare(0, 11, "exceptions.") == 0 ? name.substr(11) : name;
    return plain + ": " + (text ? PyString_AsString(text.get()) : "");
}
