// Finding a parameter's declaration by name.
#pragma once

#include "kelmo/plugin/plugin.h"

namespace KUtils::Python {

// The first declaration of this name in the plugin's type, compared byte for byte; null when the type declares none.
// Throws when the module is not initialised.
const ParamDesc* findParamDesc(const Plugin* plugin, const char* name);

// The same, but throws when the type declares none.
const ParamDesc& lookupParamDesc(const Plugin* plugin, const char* name);

}  // namespace KUtils::Python
