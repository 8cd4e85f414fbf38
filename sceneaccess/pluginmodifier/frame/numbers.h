// Reading Python ints the same on every system, whatever the width of its long.
#pragma once

#include <cstdint>

#include "frame/python.h"

namespace KUtils::Python {

// `object` as PyInt_AsLong reads it on a system with a 32-bit long: what does not fit leaves an OverflowError
// pending and reads as -1, as does null and what is no number (with the error of the conversion).
std::int32_t asInt32(PyObject* object);

}  // namespace KUtils::Python
