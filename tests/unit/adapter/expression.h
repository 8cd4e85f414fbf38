// Python values for the tests, written as Python.
#pragma once

#include "check.h"
#include "frame/py_ref.h"

// The object that a Python expression gives.
inline KUtils::Python::PyRef python(const char* expression) {
    static PyObject* names = PyDict_New();
    if (PyDict_Size(names) == 0) {
        PyDict_SetItemString(names, "__builtins__", PyEval_GetBuiltins());
        const char* definitions =
            "class Number(object):\n"
            "    def __float__(self): return 1.5\n"
            "    def __int__(self): return 7\n"
            "class Broken(object):\n"
            "    def __float__(self): raise ValueError('broken float')\n"
            "    def __int__(self): raise ValueError('broken int')\n"
            "class Loops(object):\n"
            "    def __int__(self):\n"
            "        for i in (1, 2): pass\n"
            "        return 7\n"
            "    def __float__(self): return float(self.__int__())\n"
            "class Pair(tuple): pass\n"
            "class Items(list): pass\n";
        Py_XDECREF(PyRun_String(definitions, Py_file_input, names, names));
    }
    auto object = KUtils::Python::PyRef::steal(PyRun_String(expression, Py_eval_input, names, names));
    if (!object) PyErr_Print();
    CHECK(static_cast<bool>(object));
    return object;
}
