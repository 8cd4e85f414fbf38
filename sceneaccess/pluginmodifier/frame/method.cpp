#include "frame/method.h"

namespace KUtils::Python {

void setArgumentError(const char* function, PyObject* args, Py_ssize_t index, Py_ssize_t wanted, const char* kind) {
    PyErr_Clear();
    const Py_ssize_t given = PyTuple_Size(args);
    if (index >= given) {
        PyErr_Format(PyExc_TypeError, "%s() takes at least %zd argument%s (%zd given)", function, wanted,
                     wanted == 1 ? "" : "s", given);
    } else {
        PyErr_Format(PyExc_TypeError, "%s() argument %zd must be %s, not %.200s", function, index + 1, kind,
                     Py_TYPE(PyTuple_GET_ITEM(args, index))->tp_name);
    }
}

}  // namespace KUtils::Python
