// Loading scene files beside the host's own plugins.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// The module's functions of the same names. `text` is handed to the core with each file; an empty one as null. They
// throw SceneAccessProblem for a file that cannot be read; what was read before stays.

// Always makes a new extra scene.
PyObject* addSceneContent(PyListObject* files, const char* text);

// Loads into the oldest extra scene, and makes one only when there is none.
PyObject* appendSceneContent(PyListObject* files, const char* text);

}  // namespace KUtils::Python
