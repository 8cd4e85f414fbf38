// DefPluginParam: a reference to a plugin, or to a named output of it. The plugin is not owned; the
// output's name is a copy, shared with the clones.
#pragma once

#include "params/scalar/scalar_base.h"
#include "params/shared_text.h"

namespace KUtils {

class DefPluginParam final : public ScalarBase<> {
  public:
    DefPluginParam(const char* name, PluginBase* plugin, const char* outputName, bool ownsName) noexcept;
    DefPluginParam(const DefPluginParam& source) noexcept;
    ~DefPluginParam() override;

    ParamType getType(int index, double time) override;
    using ScalarBase::getPlugin;
    PluginBase* getPlugin(int index, double time, const char** outputName) override;
    void setPluginOutput(PluginBase* plugin, const char* outputName, int index, double time) override;
    KelmoPluginParameter* clone() override;

  private:
    SharedText* output;
    PluginBase* referenced;
};

}  // namespace KUtils
