// Plugins of the stub renderer, which carry and take values, and their one type. Each of their operations says that it
// was reached.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "kelmo/plugin/param_desc.h"
#include "kelmo/plugin/parameter_list.h"
#include "kelmo/plugin/plugin.h"
#include "stub_value.h"

namespace stub {

struct Descriptor final : KUtils::PluginDescriptor {
    Descriptor() {
        for (const Carried& carried : carriedValues()) declare(carried.name, carried.declared, carried.isList ? 0 : -1);
        declare("out", KUtils::PARAM_OUTPUT_TEXTURE, -1);
        declare("given", KUtils::PARAM_INT, -1);
        records.back().hasDefault = 1;
        table.count = static_cast<std::int32_t>(records.size());
        table.records = records.data();
        params = &table;
    }
    void declare(const char* name, int type, std::int32_t listCount) {
        KUtils::ParamDesc desc{};
        desc.name = name;
        desc.type = static_cast<KUtils::ParamType>(type);
        desc.listCount = listCount;
        records.push_back(desc);
    }
    const char* getTypeName() override {
        reach("descriptor.getTypeName");
        return "Thing";
    }

    std::vector<KUtils::ParamDesc> records;
    KUtils::ParamTable table{};
};

struct AnyInterface final : KUtils::PluginInterface {
    std::uint32_t getInterfaceID() override { return 0; }
    KUtils::PluginBase* getPlugin() override { return nullptr; }
};

struct Described final : KUtils::PluginDescriptorInterface {
    KUtils::PluginBase* getPlugin() override { return nullptr; }
};

struct ParameterList final : KUtils::KelmoParameterList {
    std::vector<KUtils::KelmoPluginParameter*> values;
};

class StubPlugin final : public KUtils::Plugin {
  public:
    StubPlugin(const char* pluginName, Descriptor& type) {
        name = pluginName;
        descriptor = &type;
        described.descriptor = &type;
        paramList = &list;
    }
    void hideDescriptor() { descriptor = described.descriptor = nullptr; }
    void carry(KUtils::KelmoPluginParameter* value, const char* valueName) {
        list.values.push_back(value);
        carried[valueName] = value;
    }
    void carryNothing() { list.values.assign(1, nullptr); }
    KUtils::PluginInterface* getInterface(KUtils::InterfaceID id) override {
        reach("plugin.getInterface");
        if (id == KUtils::UNIQUE_PLUGIN_INTERFACE_ID) return nullptr;
        if (id == KUtils::PLUGIN_DESC_INTERFACE_ID) return &described;
        return &anyInterface;
    }
    KUtils::PluginDescriptor* getPluginDescriptor() override {
        reach("plugin.getPluginDescriptor");
        return descriptor;
    }
    int setParameter(KUtils::KelmoPluginParameter* value) override {
        reach("plugin.setParameter");
        if (!takesValues) return 0;
        carried[value->getName()] = value;
        taken.push_back(value);
        return 1;
    }
    KUtils::KelmoPluginParameter* getParameter(const char* wanted) override {
        reach("plugin.getParameter");
        const auto found = carried.find(wanted);
        return found != carried.end() ? found->second : nullptr;
    }

    bool takesValues = true;
    std::vector<KUtils::KelmoPluginParameter*> taken;

  private:
    ParameterList list;
    std::map<std::string, KUtils::KelmoPluginParameter*> carried;
    Described described;
    AnyInterface anyInterface;
};

}  // namespace stub
