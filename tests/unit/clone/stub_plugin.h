// Plugins of the tests: a type name, interfaces and declared outputs as a case wants them.
#pragma once

#include <cstdint>
#include <vector>

#include "kelmo/plugin/plugin.h"

class StubDescriptor : public KUtils::PluginDescriptor {
  public:
    const char* typeName = nullptr;
    std::vector<KUtils::ParamDesc> records;
    KUtils::ParamTable table{};

    void declare(const char* name, int type) {
        KUtils::ParamDesc desc{};
        desc.name = name;
        desc.type = static_cast<KUtils::ParamType>(type);
        desc.listCount = -1;
        records.push_back(desc);
        table.count = static_cast<std::int32_t>(records.size());
        table.records = records.data();
        params = &table;
    }
    const char* getTypeName() override {
        ++asked;
        return typeName;
    }
    int asked = 0;
};

class StubInterface : public KUtils::PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return identifier; }
    KUtils::PluginBase* getPlugin() override { return nullptr; }
    std::uint32_t identifier = 0;
};

class StubPlugin : public KUtils::Plugin {
  public:
    explicit StubPlugin(const char* typeName = nullptr) { type.typeName = typeName; }

    KUtils::PluginInterface* getInterface(KUtils::InterfaceID id) override {
        if (describes && id == KUtils::PLUGIN_DESC_INTERFACE_ID) {
            described.descriptor = hasDescriptor ? &type : nullptr;
            return &described;
        }
        for (std::uint32_t offered : interfaces) {
            if (offered == id) return &anyInterface;
        }
        return nullptr;
    }
    KUtils::PluginDescriptor* getPluginDescriptor() override { return type.typeName != nullptr ? &type : nullptr; }
    int setParameter(KUtils::KelmoPluginParameter*) override { return 0; }
    KUtils::KelmoPluginParameter* getParameter(const char*) override { return nullptr; }

    StubDescriptor type;
    std::vector<std::uint32_t> interfaces;
    bool describes = true;      // offers the interface that gives its descriptor
    bool hasDescriptor = true;  // and gives one there

  private:
    struct Described : KUtils::PluginDescriptorInterface {
        KUtils::PluginBase* getPlugin() override { return nullptr; }
    };
    Described described;
    StubInterface anyInterface;
};
