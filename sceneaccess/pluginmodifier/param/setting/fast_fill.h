// The fast road of a flat list: what the element-by-element walk through the adapter would do, read straight from
// the Python objects. It is taken only where every object is of an exact built-in type that converts without
// failing and without running a script's code, so that the result is the same.
#pragma once

#include <cstdint>

#include "frame/python.h"
#include "kelmo/param/settable.h"

namespace KUtils::Python {

// Fills `target`, a new flat list of type `code` and its settable interface, from the elements of a Python list.
// False when an element is not of that very type: the walk, started anew, has then to do it. Nothing is pending.
bool fastFill(KelmoPluginParameter& target, KelmoSettableParamInterface& settable, std::int32_t code, PyObject* list);

}  // namespace KUtils::Python
