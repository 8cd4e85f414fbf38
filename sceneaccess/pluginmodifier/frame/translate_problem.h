// From a problem to what Python gets.
#pragma once

#include "frame/problem.h"
#include "frame/python.h"

namespace KUtils::Python {

// A warning that the host can print: printed, and None (a new reference). Anything else: an Exception with
// the message is pending, and null.
PyObject* translateProblem(const SceneAccessProblem& problem);

}  // namespace KUtils::Python
