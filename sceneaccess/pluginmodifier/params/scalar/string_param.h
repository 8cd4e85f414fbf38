// DefStringParam: a text under a parameter name. The text is the object's own copy; null is allowed.
#pragma once

#include "params/scalar/scalar_base.h"

namespace KUtils {

class DefStringParam final : public ScalarBase<> {
  public:
    DefStringParam(const char* name, const char* text, bool ownsName) noexcept;
    DefStringParam(const DefStringParam& source) noexcept;
    ~DefStringParam() override;

    ParamType getType(int index, double time) override;
    const char* getString(int index, double time) override;
    void setString(const char* value, int index, double time) override;
    KelmoPluginParameter* clone() override;

    bool isWholeCopyOf(const DefStringParam& source) const;

  private:
    char* text;
};

}  // namespace KUtils
