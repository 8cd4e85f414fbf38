// From parameter values and declared defaults to tagged Python values, the pairs (type code, value).
#pragma once

#include "frame/python.h"
#include "kelmo/param/plugin_parameter.h"
#include "kelmo/plugin/param_desc.h"

namespace KUtils::Python {

// The value at the cursor of `value`, of type `code`: a new tagged pair; None for a plugin reference to nothing and for
// a list whose elements have no Python shape; null without a Python error for a type that has none at all.
PyObject* valueToPython(KelmoPluginParameter& value, int code, int index);

// The declared default: a new tagged pair, or None for a type whose default has no Python shape.
PyObject* defaultToPython(const ParamDesc& record);

}  // namespace KUtils::Python
