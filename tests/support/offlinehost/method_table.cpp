#include "method_table.h"

PyObject* methodTable(PyObject* function) {
    if (!PyCFunction_Check(function)) {
        PyErr_SetString(PyExc_TypeError, "a function of an extension module is expected");
        return nullptr;
    }
    PyObject* table = PyList_New(0);
    if (table == nullptr) return nullptr;
    const auto* entry = reinterpret_cast<PyCFunctionObject*>(function)->m_ml;
    for (; entry->ml_name != nullptr; ++entry) {
        PyObject* row = Py_BuildValue("sis", entry->ml_name, entry->ml_flags, entry->ml_doc);
        const bool appended = row != nullptr && PyList_Append(table, row) == 0;
        Py_XDECREF(row);
        if (appended) continue;
        Py_DECREF(table);
        return nullptr;
    }
    return table;
}
