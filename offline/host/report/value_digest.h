// A 64-bit digest of everything that a value holds, for telling whether it has changed.
#pragma once

#include <cstdint>

#include "kelmo/param/plugin_parameter.h"

namespace Offline {

// Walks through the value at time 0. Equal values carried as the same kinds have equal digests; a
// reference counts by the plugin that it points at, a number by its bits.
std::uint64_t valueDigest(KUtils::KelmoPluginParameter& value);

}  // namespace Offline
