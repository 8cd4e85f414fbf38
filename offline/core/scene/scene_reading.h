// How the core reads a scene file into a scene; defined in scene_file/.
#pragma once

#include "kelmo/core/error_record.h"

namespace Offline {

class SceneContents;

// Adds the plugins of a file. `shownName` (null: the path) names it in messages. Null on success, else a chain of
// records of which the caller holds one reference; what was read before the error stays.
KUtils::ErrorRecord* readSceneFile(SceneContents& contents, const char* path, const char* shownName);

}  // namespace Offline
