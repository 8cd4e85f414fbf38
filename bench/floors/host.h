// The host that the floors call directly: the same objects and the same virtual calls as the module's.
//
// Ownership: everything here is the host's. Errors: a Python exception is pending when a function returns null.
#pragma once

// The interpreter's header comes first.
#include "python.h"
// The contract.
#include "kelmo/plugin/plugin.h"
#include "kelmo/scene/host_plugin_manager.h"

namespace Bench {

// Takes the manager from the host library at `path`, which the process has loaded already.
bool connectHost(const char* path);

// The connected host's manager.
KUtils::HostPluginManager* manager();

// Argument `index` of a call as a text, null with an error pending when it is none.
inline const char* textArgument(PyObject* args, Py_ssize_t index) {
    PyObject* item = PyTuple_GetItem(args, index);
    return item != nullptr ? PyString_AsString(item) : nullptr;
}

// The plugin that argument 0 names and, where asked, the value that argument 1 names; null with an error pending.
KUtils::Plugin* pluginArgument(PyObject* args);
KUtils::KelmoPluginParameter* valueArgument(PyObject* args, KUtils::Plugin** plugin = nullptr);

// Seconds of processor time that this thread has used: other programs on the machine do not count.
double processorTime();

}  // namespace Bench
