#include "frame/string_arg.h"

#include <cstdio>

namespace KUtils::Python {

namespace {

// Switches the interpreter's default encoding to UTF-8 and puts the old one back. The name is copied: the
// interpreter answers with the address of the very buffer that it overwrites.
class DefaultEncodingUtf8 {
  public:
    DefaultEncodingUtf8() {
        std::snprintf(saved, sizeof saved, "%s", PyUnicode_GetDefaultEncoding());
        switched = PyUnicode_SetDefaultEncoding("utf8") == 0;
    }
    // A pending error of the conversion survives.
    ~DefaultEncodingUtf8() {
        if (!switched) return;
        PyObject *type, *value, *traceback;
        PyErr_Fetch(&type, &value, &traceback);
        if (PyUnicode_SetDefaultEncoding(saved) == 0 || type != nullptr) PyErr_Restore(type, value, traceback);
    }
    bool isSwitched() const { return switched; }

  private:
    char saved[128];
    bool switched;
};

// The UTF-8 of a unicode object, which keeps it; null with an error pending.
const char* utf8Of(PyObject* item) {
    const DefaultEncodingUtf8 encoding;
    if (!encoding.isSwitched()) return nullptr;
    char* text = nullptr;
    // With a length to fill, a text with a zero in it is no error.
    Py_ssize_t length = 0;
    return PyString_AsStringAndSize(item, &text, &length) == 0 ? text : nullptr;
}

}  // namespace

const char* convertedStringArg(PyObject* args, Py_ssize_t index) {
    PyObject* item = PyTuple_GetItem(args, index);
    if (item == nullptr) return nullptr;
    if (!PyUnicode_Check(item)) return PyString_AsString(item);
    const char* text = utf8Of(item);
    // The old encoding may not have come back: no call goes on with that error pending.
    return PyErr_Occurred() == nullptr ? text : nullptr;
}

}  // namespace KUtils::Python
