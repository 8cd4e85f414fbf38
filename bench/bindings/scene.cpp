#include "scene.h"

#include <dlfcn.h>
#include <fnmatch.h>

#include <memory>
#include <stdexcept>
#include <unordered_map>

#include "kelmo/scene/host_exports.h"

namespace BenchScene {

using namespace KUtils;

namespace {

HostPluginManager* manager = nullptr;

// A number that the wrapper keeps for a plugin.
class Number final : public KelmoPluginParameter {
  public:
    Number(const std::string& paramName, double number) : name(paramName), value(static_cast<float>(number)) {}
    const char* getName() override { return name.c_str(); }
    ParamType getType(int, double) override { return PARAM_FLOAT; }
    float getFloat(int, double) override { return value; }

  private:
    std::string name;
    float value;
};

Plugin* pluginOf(const std::string& name) {
    Plugin* plugin = manager->findPlugin(name.c_str());
    if (plugin == nullptr) throw std::runtime_error("no plugin " + name);
    return plugin;
}

KelmoPluginParameter* valueOf(const std::string& plugin, const std::string& param) {
    KelmoPluginParameter* value = pluginOf(plugin)->getParameter(param.c_str());
    if (value == nullptr) throw std::runtime_error("no value " + param);
    return value;
}

class FindByName final : public EnumPluginCallback {
  public:
    explicit FindByName(const std::string& wanted) : pattern(wanted) {}
    int process(Plugin* plugin) override {
        const char* name = pluginName(plugin);
        if (::fnmatch(pattern.c_str(), name, FNM_NOESCAPE) == 0) found.emplace_back(name);
        return 1;
    }
    std::vector<std::string> found;

  private:
    const std::string& pattern;
};

}  // namespace

void connect(const std::string& path) {
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD);
    void* symbol = library != nullptr ? dlsym(library, HOST_GET_PLUGIN_MANAGER) : nullptr;
    if (symbol == nullptr) throw std::runtime_error(path + " is not loaded, or is no host");
    manager = reinterpret_cast<GetPluginManagerFunction>(symbol)();
}

bool exists(const std::string& plugin) { return manager->findPlugin(plugin.c_str()) != nullptr; }

double getFloat(const std::string& plugin, const std::string& param) {
    return static_cast<double>(valueOf(plugin, param)->getFloat(0, 0.0));
}

void setFloat(const std::string& plugin, const std::string& param, double value) {
    // The values that were set, by what carries them; an older one goes when it is replaced.
    static std::unordered_map<std::string, std::unique_ptr<Number>> numbers;
    auto number = std::make_unique<Number>(param, value);
    if (pluginOf(plugin)->setParameter(number.get()) == 0) throw std::runtime_error("refused: " + param);
    numbers[plugin + "." + param] = std::move(number);
}

std::vector<float> getFloatList(const std::string& plugin, const std::string& param) {
    const ListView<float> view = valueOf(plugin, param)->getFloatList(0.0);
    std::vector<float> values(view.data, view.data + view.count);
    releaseView(view);
    return values;
}

std::vector<std::string> findByName(const std::string& pattern) {
    FindByName search(pattern);
    manager->pluginManager->enumPlugins(&search);
    return std::move(search.found);
}

}  // namespace BenchScene
