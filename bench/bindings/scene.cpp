#include "scene.h"

#include <fnmatch.h>

#include <stdexcept>

#include "connection.h"
#include "kelmo/param/settable.h"
#include "kelmo/plugin/parameter_list.h"

namespace BenchScene {

using namespace KUtils;

namespace {

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

class CopyValues final : public EnumParamsCallback {
  public:
    explicit CopyValues(Plugin& plugin) : target(plugin) {}
    int process(KelmoPluginParameter* value) override {
        PluginInterface* cloneable = value->getInterface(EXT_CLONEABLE_PARAM);
        if (cloneable == nullptr) throw std::runtime_error("cannot be copied");
        give(target,
             std::unique_ptr<KelmoPluginParameter>(static_cast<KelmoCloneableParamInterface*>(cloneable)->clone()));
        return 1;
    }

  private:
    Plugin& target;
};

}  // namespace

bool exists(const std::string& plugin) { return manager().findPlugin(plugin.c_str()) != nullptr; }

bool paramExists(const std::string& plugin, const std::string& param) {
    const ParamTable& table = *pluginOf(plugin).descriptor->params;
    for (int i = 0; i < table.count; ++i) {
        if (param == table.records[i].name) return true;
    }
    return false;
}

std::vector<std::string> findByName(const std::string& pattern) {
    FindByName search(pattern);
    manager().pluginManager->enumPlugins(&search);
    return std::move(search.found);
}

std::string duplicate(const std::string& source, const std::string& name) {
    Plugin& original = pluginOf(source);
    bool existed = false;
    Plugin* copy = manager().createPlugin(name.c_str(), pluginTypeName(&original), existed, false, false, false);
    if (copy == nullptr || existed) throw std::runtime_error("could not be made: " + name);
    CopyValues values(*copy);
    original.paramList->enumParams(&values);
    return pluginName(copy);
}

}  // namespace BenchScene
