// The host's list of extra scenes, newest first, with its own block storage and one iteration cursor.
// The host makes it; the module appends to it; every walk moves the cursor.
#pragma once

#include <cstdint>

#include "kelmo/scene/scene.h"

namespace KUtils {

struct SceneNode {
    KelmoScene* scene;  // may be null: a scene that could not be allocated
    SceneNode* next;
};

struct SceneBlock {
    SceneBlock* next;
    SceneBlock* previous;
    std::int32_t used;
    std::int32_t capacity;
    SceneNode* slots;
};

struct SceneList {
    SceneBlock* firstBlock;
    SceneBlock* currentBlock;  // where the search for a free slot starts
    unsigned char reserved16[12];
    std::int32_t slotsTaken;  // ever taken from blocks
    std::int32_t blockSize;   // slots a block
    unsigned char reserved36[4];
    std::uint64_t bytesHeld;  // grows by (blockSize + 2) * 16 a block
    SceneNode* head;
    SceneNode* cursor;
    SceneNode* freeNodes;  // nodes that can be used again
    std::int32_t count;
    unsigned char reserved76[4];
};

}  // namespace KUtils
