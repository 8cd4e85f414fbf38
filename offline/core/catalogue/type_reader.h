// Reads plugin types from the JSON text of one file (docs/plugin-types.md).
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "core/catalogue/plugin_type.h"

namespace Offline {

// The types of the text, in their order; empty `error` on success, else the path to the key and what is wrong.
std::vector<std::unique_ptr<PluginType>> readTypes(const char* text, std::size_t length, std::string& error);

}  // namespace Offline
