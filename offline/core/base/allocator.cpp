// The core's heap: the C heap with a header before each block, so that sizes can be counted and checked.
#include "kelmo/core/allocator.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "core/base/counters.h"
#include "core/core_api.h"

namespace Offline {
namespace {

// Before every block, as long as the strictest alignment that the C heap gives.
struct alignas(16) BlockHeader {
    std::size_t size;
    std::uint64_t mark;
};
static_assert(sizeof(BlockHeader) == 16, "blocks keep the heap's alignment");

constexpr std::uint64_t LIVE = 0x6b656c6d6f6c6976;

std::uint64_t allocationsUntilFailure = 0;  // 0: none is going to fail
bool failurePersists = false;
char misuse[160] = "";

bool failsNow() {
    if (allocationsUntilFailure == 0) return false;
    if (allocationsUntilFailure > 1) {
        --allocationsUntilFailure;
        return false;
    }
    if (!failurePersists) allocationsUntilFailure = 0;
    return true;
}

BlockHeader* headerOf(void* block) { return static_cast<BlockHeader*>(block) - 1; }

void countBytes(std::size_t added, std::size_t removed) {
    counters.liveBytes += added;
    counters.liveBytes -= removed;
    if (counters.liveBytes > counters.peakBytes) counters.peakBytes = counters.liveBytes;
}

void reportMisuse() {
    if (!isObserved()) return;
    char line[sizeof misuse + 16];
    const int length = std::snprintf(line, sizeof line, "misuse: %s", misuse);
    reportCall(line, static_cast<std::size_t>(length));
}

// True when the allocator handed this block out and did not get it back.
bool isOurs(const BlockHeader* header, const char* call) {
    if (header->mark == LIVE) return true;
    ++counters.foreignFrees;
    std::snprintf(misuse, sizeof misuse, "%s of a block that the allocator did not hand out, or that was freed", call);
    reportMisuse();
    return false;
}

// A block of `size` bytes in place of `old` (null: a new one); null when it cannot be had.
void* resize(BlockHeader* old, std::size_t size) {
    BlockHeader* header = nullptr;
    if (!failsNow() && size <= SIZE_MAX - sizeof(BlockHeader))
        header = static_cast<BlockHeader*>(std::realloc(old, sizeof(BlockHeader) + size));
    if (header == nullptr) {
        ++counters.failedAllocations;
        return nullptr;
    }
    header->size = size;
    header->mark = LIVE;
    return header + 1;
}

}  // namespace

void failAllocation(std::uint64_t nth, bool persistent) {
    allocationsUntilFailure = nth;
    failurePersists = persistent;
}

const char* lastMisuse() { return misuse; }

}  // namespace Offline

using namespace Offline;

void* kelmo_malloc(std::size_t size) {
    void* block = resize(nullptr, size);
    if (block == nullptr) return nullptr;
    ++counters.allocations;
    ++counters.liveBlocks;
    countBytes(size, 0);
    return block;
}

void* kelmo_realloc(void* block, std::size_t size) {
    if (block == nullptr) return kelmo_malloc(size);
    BlockHeader* header = headerOf(block);
    if (!isOurs(header, "kelmo_realloc")) return nullptr;
    const std::size_t oldSize = header->size;
    void* moved = resize(header, size);
    if (moved == nullptr) return nullptr;
    ++counters.reallocations;
    countBytes(size, oldSize);
    return moved;
}

void kelmo_free(void* block, std::size_t size) {
    if (block == nullptr) return;
    BlockHeader* header = headerOf(block);
    if (!isOurs(header, "kelmo_free")) return;
    if (size != 0 && size != header->size) {
        ++counters.wrongSizes;
        std::snprintf(misuse, sizeof misuse, "kelmo_free with the size %llu of a block of %llu bytes",
                      static_cast<unsigned long long>(size), static_cast<unsigned long long>(header->size));
        reportMisuse();
    }
    ++counters.frees;
    --counters.liveBlocks;
    countBytes(0, header->size);
    // Volatile, or the compiler leaves out a store to memory that is freed next.
    *const_cast<volatile std::uint64_t*>(&header->mark) = 0;
    std::free(header);
}
