// Which values a declared parameter takes.
#pragma once

#include "kelmo/param/plugin_parameter.h"
#include "kelmo/plugin/param_desc.h"

namespace Offline {

// True when a value of this type can be carried for `desc`. Numbers stand in for each other, so do colours with
// and without alpha, and matrix and transform; a texture takes its plain kind, a plugin reference, or its own code.
// A list takes lists whose elements fit; texture lists take references only. Outputs take nothing.
bool valueFits(const KUtils::ParamDesc& desc, KUtils::KelmoPluginParameter& value);

}  // namespace Offline
