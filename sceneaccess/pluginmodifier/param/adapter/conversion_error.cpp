#include "param/adapter/conversion_error.h"

namespace KUtils::Python {

void ConversionError::take() {
    PyObject *pendingType = nullptr, *pendingValue = nullptr, *pendingTraceback = nullptr;
    PyErr_Fetch(&pendingType, &pendingValue, &pendingTraceback);
    type = PyRef::steal(pendingType);
    value = PyRef::steal(pendingValue);
    traceback = PyRef::steal(pendingTraceback);
}

std::string ConversionError::text() const {
    const PyRef shown = PyRef::steal(value ? PyObject_Str(value.get()) : nullptr);
    if (shown && PyString_GET_SIZE(shown.get()) > 0) return PyString_AS_STRING(shown.get());
    PyErr_Clear();
    const std::string name = PyExceptionClass_Check(type.get()) ? PyExceptionClass_Name(type.get()) : "unknown error";
    return name.substr(name.rfind('.') + 1);  // without the module's name
}

}  // namespace KUtils::Python
