// Walking through the list of extra scenes with the list's own cursor, which every walk resets: no two walks may
// overlap.
#pragma once

#include "kelmo/scene/scene_list.h"

namespace KUtils::Python {

class SceneWalk {
  public:
    explicit SceneWalk(SceneList& list) : scenes(list) { scenes.cursor = scenes.head; }

    // False at the end. The cursor moves on before the scene is used; the scene may be null.
    bool next(KelmoScene*& scene) {
        const SceneNode* node = scenes.cursor;
        if (node == nullptr) return false;
        scenes.cursor = node->next;
        scene = node->scene;
        return true;
    }

  private:
    SceneList& scenes;
};

}  // namespace KUtils::Python
