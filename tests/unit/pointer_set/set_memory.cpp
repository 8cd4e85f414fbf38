#include "set_memory.h"

#include <cstdlib>
#include <cstring>

#include "kelmo/core/allocator.h"

SetMemory& setMemory() {
    static SetMemory memory;
    return memory;
}

namespace {
constexpr std::size_t HEADER = 16;
}

void* kelmo_malloc(std::size_t size) {
    SetMemory& memory = setMemory();
    ++memory.requests;
    if (memory.failFrom != 0 && memory.requests >= memory.failFrom) return nullptr;
    auto* block = static_cast<unsigned char*>(std::malloc(size + HEADER));
    if (block == nullptr) return nullptr;
    std::memcpy(block, &size, sizeof size);
    std::memset(block + HEADER, 0xa5, size);
    ++memory.blocks;
    memory.bytes += size;
    return block + HEADER;
}

void kelmo_free(void* data, std::size_t size) {
    if (data == nullptr) return;
    SetMemory& memory = setMemory();
    auto* block = static_cast<unsigned char*>(data) - HEADER;
    std::size_t asked = 0;
    std::memcpy(&asked, block, sizeof asked);
    memory.sizesAgree = memory.sizesAgree && (size == 0 || size == asked);
    --memory.blocks;
    memory.bytes -= asked;
    std::memset(data, 0x5a, asked);
    std::free(block);
}

void* kelmo_realloc(void* data, std::size_t size) {
    std::size_t asked = 0;
    if (data != nullptr) std::memcpy(&asked, static_cast<unsigned char*>(data) - HEADER, sizeof asked);
    void* block = kelmo_malloc(size);
    if (block == nullptr || data == nullptr) return block;
    std::memcpy(block, data, asked < size ? asked : size);
    kelmo_free(data, asked);
    return block;
}
