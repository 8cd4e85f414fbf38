#include "contract/test_heap.h"

#include <cstdlib>

#include "kelmo/core/allocator.h"

TestHeap& testHeap() {
    static TestHeap heap;
    return heap;
}

void* kelmo_malloc(std::size_t size) {
    TestHeap& heap = testHeap();
    if (heap.failNext > 0) {
        --heap.failNext;
        return nullptr;
    }
    ++heap.live;
    heap.lastSize = size;
    return heap.newest = std::malloc(size);
}

void* kelmo_realloc(void* block, std::size_t size) {
    if (block == nullptr) return kelmo_malloc(size);
    return std::realloc(block, size);
}

void kelmo_free(void* block, std::size_t size) {
    if (block == nullptr) return;
    --testHeap().live;
    testHeap().freedSize = size;
    std::free(block);
}
