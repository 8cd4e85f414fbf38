// The values that a plugin carries, and how the core walks through them.
#pragma once

#include "kelmo/core/export.h"
#include "kelmo/param/plugin_parameter.h"

namespace KUtils {

class EnumParamsCallback {
  public:
    // Receives one value object; nonzero goes on, zero stops.
    virtual int process(KelmoPluginParameter* param) = 0;

  protected:
    ~EnumParamsCallback() = default;
};

class KelmoParameterList {
  public:
    // Calls back for every value, in the core's order.
    KELMO_CORE_API void enumParams(EnumParamsCallback* callback);

  protected:
    KelmoParameterList() = default;
    ~KelmoParameterList() = default;
};

}  // namespace KUtils
