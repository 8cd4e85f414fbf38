#include "host.h"

#include <dlfcn.h>
#include <time.h>

#include "kelmo/scene/host_exports.h"

namespace Bench {

namespace {

KUtils::HostPluginManager* connected = nullptr;

}  // namespace

bool connectHost(const char* path) {
    void* library = dlopen(path, RTLD_NOW | RTLD_NOLOAD);
    void* symbol = library != nullptr ? dlsym(library, KUtils::HOST_GET_PLUGIN_MANAGER) : nullptr;
    connected = symbol != nullptr ? reinterpret_cast<KUtils::GetPluginManagerFunction>(symbol)() : nullptr;
    if (connected == nullptr) PyErr_Format(PyExc_RuntimeError, "%.500s is not loaded, or is no host", path);
    return connected != nullptr;
}

KUtils::HostPluginManager* manager() { return connected; }

KUtils::Plugin* pluginArgument(PyObject* args) {
    const char* name = textArgument(args, 0);
    if (name == nullptr) return nullptr;
    KUtils::Plugin* plugin = connected->findPlugin(name);
    if (plugin == nullptr) PyErr_Format(PyExc_KeyError, "no plugin %.200s", name);
    return plugin;
}

KUtils::KelmoPluginParameter* valueArgument(PyObject* args, KUtils::Plugin** plugin) {
    KUtils::Plugin* found = pluginArgument(args);
    const char* name = found != nullptr ? textArgument(args, 1) : nullptr;
    if (name == nullptr) return nullptr;
    if (plugin != nullptr) *plugin = found;
    KUtils::KelmoPluginParameter* value = found->getParameter(name);
    if (value == nullptr) PyErr_Format(PyExc_KeyError, "no value %.200s", name);
    return value;
}

double processorTime() {
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

}  // namespace Bench
