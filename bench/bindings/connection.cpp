#include "connection.h"

#include <dlfcn.h>

#include <stdexcept>
#include <unordered_map>

#include "kelmo/scene/host_exports.h"
#include "scene.h"

namespace BenchScene {

using namespace KUtils;

namespace {

HostPluginManager* connected = nullptr;
// By what carries them.
std::unordered_map<std::string, std::unique_ptr<KelmoPluginParameter>> values;

}  // namespace

void connect(const std::string& path) {
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    void* symbol = library != nullptr ? dlsym(library, HOST_GET_PLUGIN_MANAGER) : nullptr;
    if (symbol == nullptr) throw std::runtime_error(path + " is not loaded, or is no host");
    connected = reinterpret_cast<GetPluginManagerFunction>(symbol)();
    values.clear();
}

HostPluginManager& manager() { return *connected; }

Plugin& pluginOf(const std::string& name) {
    Plugin* plugin = connected->findPlugin(name.c_str());
    if (plugin == nullptr) throw std::runtime_error("no plugin " + name);
    return *plugin;
}

void give(Plugin& plugin, std::unique_ptr<KelmoPluginParameter> value) {
    std::string place = pluginName(&plugin);
    place.append(".").append(value->getName());
    if (plugin.setParameter(value.get()) == 0) throw std::runtime_error("refused: " + place);
    values[place] = std::move(value);
}

}  // namespace BenchScene
