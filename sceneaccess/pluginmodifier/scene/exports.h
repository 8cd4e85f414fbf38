// Asking the host to translate further nodes.
#pragma once

#include "frame/python.h"

namespace KUtils::Python {

// The module's functions of the same names: the name of the plugin that stands for the node. They throw a warning
// problem when the host refuses.
PyObject* exportTexture(const char* nodeName);
PyObject* exportMaterial(const char* nodeName);
PyObject* exportCamera(const char* nodeName);
PyObject* exportNode(const char* nodeName);

}  // namespace KUtils::Python
