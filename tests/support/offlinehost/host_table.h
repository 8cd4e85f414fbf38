// The host's control table, obtained by loading the host library by path.
#pragma once

#include <string>

#include "host/control.h"

namespace offlinehost {

// The table; null when the library cannot be loaded, with the reason in `error`. The first success is
// kept: the host stays in memory, and another path is refused. An empty path means the plug-in under the
// root that the environment names.
const OfflineControl* hostTable(const std::string& path, std::string& error);

// The path of the loaded library; empty before.
const std::string& hostPath();

}  // namespace offlinehost
