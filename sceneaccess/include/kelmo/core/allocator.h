// The renderer core's allocator. Everything that crosses the border between the module and the
// renderer (value objects, names, arrays, records) lives in this heap, never in the process heap.
#pragma once

#include <cstddef>

#include "kelmo/core/export.h"

extern "C" {
// `size` bytes, or null when they cannot be had.
KELMO_CORE_API void* kelmo_malloc(std::size_t size);

// Grows or shrinks `block` (null: a new block) to `size` bytes. On null the old block stays as it was.
KELMO_CORE_API void* kelmo_realloc(void* block, std::size_t size);

// Frees `block` (null: nothing). `size` is what was asked for, or 0 when the caller does not know it.
KELMO_CORE_API void kelmo_free(void* block, std::size_t size);
}

namespace KUtils {

using AllocFunction = void* (*)(std::size_t size);
using ReallocFunction = void* (*)(void* block, std::size_t size);
using FreeFunction = void (*)(void* block, std::size_t size);

}  // namespace KUtils
