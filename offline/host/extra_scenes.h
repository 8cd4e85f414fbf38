// The host's end of the list of extra scenes: it makes the empty list and, at its end, destroys the
// scenes that the module put into it, with their nodes and blocks.
#pragma once

#include <cstdint>

#include "kelmo/scene/scene_list.h"

namespace Offline {

// An empty list, or null when it cannot be allocated.
KUtils::SceneList* makeExtraScenes();

// The scene at `index`, 0 being the newest; null when there is none. Does not move the list's cursor.
KUtils::KelmoScene* extraScene(const KUtils::SceneList& list, int index);

// Destroys the scenes, newest first, and frees nodes, blocks and the list. Returns how many scenes
// there were. Null: nothing.
std::uint32_t freeExtraScenes(KUtils::SceneList* list);

}  // namespace Offline
