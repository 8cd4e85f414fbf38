// Default values of declarations: reading them from JSON by the declared type.
#pragma once

#include "core/catalogue/json_path.h"
#include "core/catalogue/plugin_type.h"

namespace Offline {

// Reads `value` as the default of `declaration`, whose type and list-ness are set. False: `error` says why.
bool readDefault(const Json& value, ParamDeclaration& declaration, PathError& error);

}  // namespace Offline
