// DefPluginListParam: a flat list of plugin references, each with the name of an output or null. Neither
// plugins nor names are owned; the names must outlive the list. No texture interfaces.
#pragma once

#include "params/list/list_base.h"

namespace KUtils {

class DefPluginListParam final : public DefListParamBaseTyped<PluginBase*> {
  public:
    using DefListParamBaseTyped::DefListParamBaseTyped;
    DefPluginListParam(const DefPluginListParam& source) noexcept;
    ~DefPluginListParam() override;

    PluginInterface* getInterface(InterfaceID id) override;
    using DefListParamBaseTyped::getPlugin;
    PluginBase* getPlugin(int index, double time, const char** outputName) override;
    void setPluginOutput(PluginBase* plugin, const char* outputName, int index, double time) override;
    void setCount(int count) override;
    void reserve(int capacity) override;
    KelmoPluginParameter* clone() override;

    bool isWholeCopyOf(const DefPluginListParam& source) const;

  private:
    ArrayRecord<const char*> names;
};

}  // namespace KUtils
