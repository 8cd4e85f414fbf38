// The host's end of the list of extra scenes: it begins empty and, at its end, the host destroys the
// scenes that the module put into it, with their nodes and blocks.
#pragma once

#include <cstdint>

#include "kelmo/scene/scene_list.h"

namespace Offline {

// A list without scenes and blocks.
KUtils::SceneList emptyExtraScenes();

// The scene at `index`, 0 being the newest; null when there is none. Does not move the list's cursor.
KUtils::KelmoScene* extraScene(const KUtils::SceneList& list, int index);

// Destroys the scenes, newest first, and frees nodes and blocks; the list is empty afterwards. Returns
// how many scenes there were.
std::uint32_t freeExtraScenes(KUtils::SceneList& list);

}  // namespace Offline
