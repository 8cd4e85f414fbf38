// Writes a plugin type as a JSON object on one line, as its file could have held it.
#pragma once

#include <string>

#include "core/catalogue/plugin_type.h"

namespace Offline {

std::string typeAsJson(const PluginType& type);

}  // namespace Offline
