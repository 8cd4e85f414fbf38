#include "driver.h"

#include "check.h"
#include "test_allocator.h"

extern "C" PyObject* initpluginmodifier();

namespace faults {

namespace {

// The module's names, and those of expressions.
PyObject* moduleNames() {
    static PyObject* names = PyModule_GetDict(initpluginmodifier());
    return names;
}

// A debug interpreter counts all references.
std::int64_t allReferences() {
    PyObject* count = PySys_GetObject(const_cast<char*>("gettotalrefcount"));
    if (count == nullptr) return 0;
    const Object total(PyObject_CallObject(count, nullptr));
    return PyInt_AsLong(total.get());
}

}  // namespace

Object python(const char* expression) {
    static PyObject* names = PyDict_New();
    if (PyDict_Size(names) == 0) PyDict_SetItemString(names, "__builtins__", PyEval_GetBuiltins());
    PyObject* object = PyRun_String(expression, Py_eval_input, names, names);
    if (object == nullptr) PyErr_Print();
    CHECK(object != nullptr);
    return Object(object);
}

PyObject* call(const char* function, PyObject* arguments) {
    PyObject* object = PyDict_GetItemString(moduleNames(), function);
    return PyCFunction_GetFunction(object)(nullptr, arguments);
}

std::string takeErrorText() {
    PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    const Object heldType(type), heldValue(value), heldTraceback(traceback);
    const Object text(value != nullptr ? PyObject_Str(value) : nullptr);
    return text.get() != nullptr ? PyString_AsString(text.get()) : "";
}

Counts countsNow() {
    return Counts{test_allocator::counters().live, Py_REFCNT(Py_None) + Py_REFCNT(Py_True) + Py_REFCNT(Py_False),
                  allReferences(), PyThreadState_GET()->recursion_depth};
}

bool countsAllReferences() { return PySys_GetObject(const_cast<char*>("gettotalrefcount")) != nullptr; }

}  // namespace faults
