// The fast road of a single value: what reading it through the adapter and copying it into a new object would give,
// straight from the Python objects. It is taken for the commonest pairs of a tag and a declared type, and only where
// every object is of an exact built-in type, so that the result is the same.
#pragma once

#include <cstdint>

#include "frame/python.h"
#include "param/clone/clone_param_value.h"

namespace KUtils::Python {

// Makes `value` as a parameter of type `code` holds it; null when there is no memory. False, with nothing made, when
// the road is not open. No error is pending afterwards that was not before.
bool fastScalar(const char* name, std::int32_t code, PyObject* tagged, OwnedValue& value);

}  // namespace KUtils::Python
