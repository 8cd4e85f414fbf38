#include "host/scene/extra_scenes.h"

#include "core/core_api.h"
#include "kelmo/core/allocator.h"

namespace Offline {

namespace {

constexpr std::int32_t SLOTS_PER_BLOCK = 8;

}  // namespace

KUtils::SceneList emptyExtraScenes() {
    KUtils::SceneList list{};
    list.blockSize = SLOTS_PER_BLOCK;
    return list;
}

KUtils::KelmoScene* extraScene(const KUtils::SceneList& list, int index) {
    const KUtils::SceneNode* node = index < 0 ? nullptr : list.head;
    for (; node != nullptr && index > 0; --index) node = node->next;
    return node != nullptr ? node->scene : nullptr;
}

std::uint32_t freeExtraScenes(KUtils::SceneList& list) {
    std::uint32_t freed = 0;
    // Nodes lie in the blocks, so only the scenes are freed one by one. A scene that could not be
    // allocated stands in the list as null.
    for (KUtils::SceneNode* node = list.head; node != nullptr; node = node->next) {
        if (node->scene == nullptr) continue;
        freeScene(node->scene);
        ++freed;
    }
    for (KUtils::SceneBlock* block = list.firstBlock; block != nullptr;) {
        KUtils::SceneBlock* next = block->next;
        kelmo_free(block->slots, static_cast<std::size_t>(block->capacity) * sizeof(KUtils::SceneNode));
        kelmo_free(block, sizeof *block);
        block = next;
    }
    list = emptyExtraScenes();
    return freed;
}

}  // namespace Offline
