#include "test_allocator.h"

#include <cstdlib>
#include <cstring>

#include "kelmo/core/allocator.h"

namespace {

struct Header {
    std::size_t size;
    std::size_t mark;
};

constexpr std::size_t liveMark = 0x600DB10C;
constexpr std::size_t freedMark = 0xDEADB10C;
constexpr std::int64_t keptRequests = 256;

test_allocator::Counters now{};
std::size_t sizes[keptRequests];
std::int64_t refusedRequest = 0;
bool refusedFromThenOn = false;

bool refusesNext(std::size_t size) {
    if (now.requests < keptRequests) sizes[now.requests] = size;
    ++now.requests;
    const bool planned =
        refusedRequest != 0 && (now.requests == refusedRequest || (refusedFromThenOn && now.requests > refusedRequest));
    return planned || size > SIZE_MAX - sizeof(Header);
}

}  // namespace

namespace test_allocator {

Counters counters() { return now; }

std::size_t requestedSize(std::int64_t index) {
    return index >= 0 && index < now.requests && index < keptRequests ? sizes[index] : 0;
}

void reset() {
    now.requests = now.refused = now.wrongFrees = 0;
    refusedRequest = 0;
}

void refuse(std::int64_t nth, bool fromThenOn) {
    refusedRequest = now.requests + nth;
    refusedFromThenOn = fromThenOn;
}

}  // namespace test_allocator

extern "C" {

void* kelmo_malloc(std::size_t size) {
    auto* header = refusesNext(size) ? nullptr : static_cast<Header*>(std::malloc(sizeof(Header) + size));
    if (header == nullptr) {
        ++now.refused;
        return nullptr;
    }
    *header = Header{size, liveMark};
    std::memset(header + 1, 0xCD, size);
    ++now.live;
    now.liveBytes += static_cast<std::int64_t>(size);
    return header + 1;
}

void kelmo_free(void* block, std::size_t size) {
    if (block == nullptr) return;
    Header* header = static_cast<Header*>(block) - 1;
    const bool isLive = header->mark == liveMark;
    if (!isLive || (size != 0 && size != header->size)) ++now.wrongFrees;
    if (!isLive) return;
    --now.live;
    now.liveBytes -= static_cast<std::int64_t>(header->size);
    header->mark = freedMark;
    std::memset(block, 0xDD, header->size);
    std::free(header);
}

void* kelmo_realloc(void* block, std::size_t size) {
    void* grown = kelmo_malloc(size);
    if (grown == nullptr || block == nullptr) return grown;
    const std::size_t old = (static_cast<Header*>(block) - 1)->size;
    std::memcpy(grown, block, old < size ? old : size);
    kelmo_free(block, old);
    return grown;
}
}
