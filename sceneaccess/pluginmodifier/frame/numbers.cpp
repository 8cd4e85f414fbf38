#include "frame/numbers.h"

#include <limits>

namespace KUtils::Python {

std::int32_t asInt32(PyObject* object) {
    const long value = PyInt_AsLong(object);
    if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
        PyErr_SetString(PyExc_OverflowError, "Python int too large to convert to C long");
        return -1;
    }
    return static_cast<std::int32_t>(value);
}

}  // namespace KUtils::Python
