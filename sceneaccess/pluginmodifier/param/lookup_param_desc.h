// Finding a parameter's declaration by name.
#pragma once

#include "kelmo/plugin/plugin.h"

namespace KUtils::Python {

// The first declaration of this name in the plugin's type, compared byte for byte. Throws when the type declares none
// or the module is not initialised.
const ParamDesc& lookupParamDesc(const Plugin* plugin, const char* name);

}  // namespace KUtils::Python
