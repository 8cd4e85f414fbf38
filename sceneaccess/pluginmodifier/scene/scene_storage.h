// Appending to the host's list of extra scenes, in the list's own block storage.
#pragma once

#include "kelmo/scene/scene_list.h"

namespace KUtils::Python {

// Puts `scene` (null allowed) at the head. Throws ExceptionMsg when there is no memory for a node; the list is then
// unchanged.
void appendScene(SceneList& scenes, KelmoScene* scene);

// The scene of the last node, the oldest; null for an empty list. Moves the cursor.
KelmoScene* oldestScene(SceneList& scenes);

}  // namespace KUtils::Python
