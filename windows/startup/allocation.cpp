// new and delete in the C run-time's heap. An image that defines its own gets its own: the linker takes
// this file only when something is missing.
#include <malloc.h>
#include <stdlib.h>

#include <new>

static size_t atLeastOne(size_t size) { return size != 0 ? size : 1; }

static void* orThrow(void* block) {
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void* operator new(size_t size) { return orThrow(malloc(atLeastOne(size))); }
void* operator new[](size_t size) { return orThrow(malloc(atLeastOne(size))); }
void* operator new(size_t size, const std::nothrow_t&) noexcept { return malloc(atLeastOne(size)); }
void* operator new[](size_t size, const std::nothrow_t&) noexcept { return malloc(atLeastOne(size)); }
void operator delete(void* block) noexcept { free(block); }
void operator delete[](void* block) noexcept { free(block); }
void operator delete(void* block, size_t) noexcept { free(block); }
void operator delete[](void* block, size_t) noexcept { free(block); }

void* operator new(size_t size, std::align_val_t alignment) {
    return orThrow(_aligned_malloc(atLeastOne(size), static_cast<size_t>(alignment)));
}
void operator delete(void* block, std::align_val_t) noexcept { _aligned_free(block); }
void operator delete(void* block, size_t, std::align_val_t) noexcept { _aligned_free(block); }
