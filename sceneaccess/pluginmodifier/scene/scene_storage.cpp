#include "scene/scene_storage.h"

#include <cstddef>

#include "kelmo/core/exception_msg.h"
#include "scene/search/scene_walk.h"

namespace KUtils::Python {

namespace {

[[noreturn]] void throwNoMemory() { throw ExceptionMsg("[_SequenceBlock] Could not allocate memory"); }

SceneBlock* makeBlock(std::int32_t slots) {
    if (slots < 1) throwNoMemory();
    auto* block = static_cast<SceneBlock*>(kelmo_malloc(sizeof(SceneBlock)));
    if (block == nullptr) throwNoMemory();
    auto* nodes = static_cast<SceneNode*>(kelmo_malloc(sizeof(SceneNode) * static_cast<std::size_t>(slots)));
    if (nodes == nullptr) {
        kelmo_free(block, sizeof(SceneBlock));
        throwNoMemory();
    }
    *block = SceneBlock{nullptr, nullptr, 0, slots, nodes};
    return block;
}

// The first block from the current one on that has a free slot, or null. The current block moves past the full ones,
// and stays at the last of them.
SceneBlock* findBlockWithRoom(SceneList& scenes) {
    SceneBlock* block = scenes.currentBlock != nullptr ? scenes.currentBlock : scenes.firstBlock;
    for (; block != nullptr; block = block->next) {
        scenes.currentBlock = block;
        if (block->used < block->capacity) return block;
    }
    return nullptr;
}

SceneBlock* addBlock(SceneList& scenes) {
    SceneBlock* block = makeBlock(scenes.blockSize);
    if (SceneBlock* last = scenes.currentBlock) {
        last->next = block;
        block->previous = last;
    } else {
        scenes.firstBlock = block;
    }
    scenes.currentBlock = block;
    scenes.bytesHeld += (static_cast<std::uint64_t>(scenes.blockSize) + 2) * sizeof(SceneNode);
    return block;
}

SceneNode* takeNode(SceneList& scenes) {
    if (SceneNode* node = scenes.freeNodes) {
        scenes.freeNodes = node->next;
        return node;
    }
    SceneBlock* block = findBlockWithRoom(scenes);
    if (block == nullptr) block = addBlock(scenes);
    ++scenes.slotsTaken;
    return &block->slots[block->used++];
}

}  // namespace

void appendScene(SceneList& scenes, KelmoScene* scene) {
    SceneNode* node = takeNode(scenes);
    *node = SceneNode{scene, scenes.head};
    scenes.head = node;
    ++scenes.count;
}

KelmoScene* oldestScene(SceneList& scenes) {
    KelmoScene* scene = nullptr;
    SceneWalk walk(scenes);
    while (walk.next(scene)) {
    }
    return scene;
}

}  // namespace KUtils::Python
