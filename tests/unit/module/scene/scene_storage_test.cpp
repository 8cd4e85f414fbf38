#include "scene/scene_storage.h"

#include <cstring>
#include <initializer_list>

#include "check.h"
#include "core/core_api.h"
#include "kelmo/core/exception_msg.h"

using namespace KUtils;
using Python::appendScene;
using Python::oldestScene;

namespace {

// Scenes are only pointed at here.
KelmoScene* scene(int number) { return reinterpret_cast<KelmoScene*>(std::uintptr_t(number) * 64); }

// A list as a host makes it, which frees its blocks.
struct List : SceneList {
    explicit List(std::int32_t slots) : SceneList() { blockSize = slots; }
    ~List() {
        while (firstBlock != nullptr) {
            SceneBlock* next = firstBlock->next;
            kelmo_free(firstBlock->slots, sizeof(SceneNode) * firstBlock->capacity);
            kelmo_free(firstBlock, sizeof(SceneBlock));
            firstBlock = next;
        }
    }
};

int blocksOf(const SceneList& list) {
    int count = 0;
    const SceneBlock* previous = nullptr;
    for (const SceneBlock* block = list.firstBlock; block != nullptr; block = block->next) {
        CHECK(block->previous == previous);
        previous = block;
        ++count;
    }
    return count;
}

// What appending `number` throws, or null.
const char* failure(SceneList& list, int number) {
    static char message[64];
    try {
        appendScene(list, scene(number));
        return nullptr;
    } catch (const ExceptionMsg& error) {
        std::strcpy(message, error.getMessage());
        return message;
    }
}

constexpr char NO_MEMORY[] = "[_SequenceBlock] Could not allocate memory";

}  // namespace

TEST_CASE(scenesAreListedNewestFirst) {
    List list(2);
    CHECK(oldestScene(list) == nullptr);
    for (int i = 1; i <= 5; ++i) appendScene(list, scene(i));
    CHECK_EQ(list.count, 5);
    CHECK_EQ(list.slotsTaken, 5);
    CHECK_EQ(blocksOf(list), 3);
    CHECK_EQ(list.bytesHeld, std::uint64_t{3 * (2 + 2) * 16});
    int expected = 5;
    for (const SceneNode* node = list.head; node != nullptr; node = node->next) CHECK(node->scene == scene(expected--));
    CHECK_EQ(expected, 0);
    CHECK(oldestScene(list) == scene(1));
    CHECK(list.cursor == nullptr);
    CHECK(list.currentBlock == list.firstBlock->next->next);
}

TEST_CASE(freeNodesAreUsedFirst) {
    List list(2);
    SceneNode spare[2] = {{scene(9), &spare[1]}, {scene(8), nullptr}};
    list.freeNodes = spare;
    appendScene(list, scene(1));
    appendScene(list, scene(2));
    CHECK(list.freeNodes == nullptr);
    CHECK(list.head == &spare[1]);
    CHECK(list.head->next == &spare[0]);
    CHECK_EQ(list.slotsTaken, 0);
    CHECK_EQ(list.count, 2);
    appendScene(list, scene(3));
    CHECK_EQ(list.slotsTaken, 1);
    CHECK_EQ(list.count, 3);
}

TEST_CASE(searchStartsAtTheCurrentBlock) {
    List list(1);
    for (int i = 1; i <= 3; ++i) appendScene(list, scene(i));
    // A hole in an earlier block is not seen again.
    list.firstBlock->used = 0;
    appendScene(list, scene(4));
    CHECK_EQ(blocksOf(list), 4);
    // Without a current block the search starts at the first, and nothing is lost.
    list.currentBlock = nullptr;
    appendScene(list, scene(5));
    CHECK_EQ(blocksOf(list), 4);
    CHECK(list.currentBlock == list.firstBlock);
    CHECK(list.head == list.firstBlock->slots);
}

TEST_CASE(fullBlocksArePassedOver) {
    List list(1);
    for (int i = 1; i <= 3; ++i) appendScene(list, scene(i));
    SceneBlock* third = list.firstBlock->next->next;
    // The search is at the first block again, and only the third has room.
    list.currentBlock = list.firstBlock;
    third->used = 0;
    appendScene(list, scene(4));
    CHECK_EQ(blocksOf(list), 3);
    CHECK(list.head == third->slots);
    CHECK(list.currentBlock == third);
    CHECK_EQ(list.slotsTaken, 4);
    // No block has room: the new one comes behind the last.
    list.currentBlock = list.firstBlock;
    appendScene(list, scene(5));
    CHECK_EQ(blocksOf(list), 4);
    CHECK(list.currentBlock == third->next);
    CHECK_EQ(list.bytesHeld, std::uint64_t{4 * (1 + 2) * 16});
}

TEST_CASE(aFailedBlockChangesNothing) {
    List list(1);
    appendScene(list, scene(1));
    const SceneList before = list;
    for (const int nth : {1, 2}) {  // the block record, then its slots
        const std::uint64_t blocks = Offline::counter("live_blocks");
        Offline::failAllocation(nth, false);
        CHECK_TEXT(failure(list, 2), NO_MEMORY);
        Offline::failAllocation(0, false);
        CHECK_EQ(Offline::counter("live_blocks"), blocks);
        CHECK(std::memcmp(&before, static_cast<SceneList*>(&list), sizeof before) == 0);
    }
    CHECK_TEXT(failure(list, 2), nullptr);
    CHECK_EQ(blocksOf(list), 2);
}

TEST_CASE(aListWithoutBlockSizeHasNoRoom) {
    for (const int size : {0, -1}) {
        List list(size);
        CHECK_TEXT(failure(list, 1), NO_MEMORY);
        CHECK_EQ(list.count, 0);
    }
}
