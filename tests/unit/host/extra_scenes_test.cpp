#include "host/scene/extra_scenes.h"

#include <new>

#include "core/core_api.h"
#include "kelmo/core/allocator.h"
#include "support/check.h"

namespace {

// Appends as the module does: a slot of the first block, at the head of the list.
void append(KUtils::SceneList& list, KUtils::KelmoScene* scene) {
    if (list.firstBlock == nullptr) {
        const std::size_t bytes = static_cast<std::size_t>(list.blockSize) * sizeof(KUtils::SceneNode);
        auto* block = static_cast<KUtils::SceneBlock*>(kelmo_malloc(sizeof(KUtils::SceneBlock)));
        *block = KUtils::SceneBlock{nullptr, nullptr, 0, list.blockSize,
                                    static_cast<KUtils::SceneNode*>(kelmo_malloc(bytes))};
        list.firstBlock = list.currentBlock = block;
    }
    KUtils::SceneNode* node = &list.firstBlock->slots[list.firstBlock->used++];
    *node = KUtils::SceneNode{scene, list.head};
    list.head = node;
    ++list.count;
}

KUtils::KelmoScene* makeScene(KUtils::PluginManager* manager) {
    return new (kelmo_malloc(sizeof(KUtils::KelmoScene))) KUtils::KelmoScene(manager, nullptr, 0);
}

}  // namespace

TEST_CASE(aNewListIsEmptyAndHasABlockSize) {
    KUtils::SceneList list = Offline::emptyExtraScenes();
    CHECK_EQ(list.blockSize, 8);
    CHECK_EQ(list.count, 0);
    CHECK_EQ(static_cast<const void*>(list.head), nullptr);
    CHECK_EQ(static_cast<const void*>(list.firstBlock), nullptr);
    CHECK_EQ(static_cast<const void*>(Offline::extraScene(list, 0)), nullptr);
    CHECK_EQ(Offline::freeExtraScenes(list), 0u);
}

TEST_CASE(scenesBlocksAndTheListAreFreed) {
    KUtils::PluginManager* manager = Offline::makeManager();
    const std::uint64_t blocks = Offline::counter("live_blocks");
    const std::uint64_t scenes = Offline::counter("scenes_made") - Offline::counter("scenes_freed");
    KUtils::SceneList list = Offline::emptyExtraScenes();
    KUtils::KelmoScene* oldest = makeScene(manager);
    KUtils::KelmoScene* newest = makeScene(manager);
    append(list, oldest);
    append(list, nullptr);  // a scene that could not be allocated
    append(list, newest);

    struct Row {
        const char* label;
        int index;
        KUtils::KelmoScene* scene;
    };
    const Row rows[] = {
        {"before the first", -1, nullptr}, {"newest", 0, newest},        {"null", 1, nullptr}, {"oldest", 2, oldest},
        {"behind the last", 3, nullptr},   {"far behind", 100, nullptr},
    };
    KUtils::SceneNode marker{};
    list.cursor = &marker;
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        CHECK_EQ(static_cast<const void*>(Offline::extraScene(list, row.index)), static_cast<const void*>(row.scene));
    }
    CHECK_ROW(nullptr);
    CHECK(list.cursor == &marker);

    CHECK_EQ(Offline::freeExtraScenes(list), 2u);
    CHECK_EQ(list.count, 0);
    CHECK_EQ(static_cast<const void*>(list.firstBlock), nullptr);
    CHECK_EQ(static_cast<const void*>(list.cursor), nullptr);
    CHECK_EQ(Offline::counter("live_blocks"), blocks);
    CHECK_EQ(Offline::counter("scenes_made") - Offline::counter("scenes_freed"), scenes);
    Offline::freeManager(manager);
}
