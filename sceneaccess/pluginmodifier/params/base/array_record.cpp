#include "params/base/array_record.h"

namespace KUtils {

std::int64_t grownCapacity(std::int64_t count, std::int32_t capacity, std::int32_t step, Growth growth) {
    if (growth == Growth::Exact) return count;
    if (step >= 1) return step - count % step + count;
    if (capacity < 1) return count;
    std::int64_t doubled = capacity;
    while (doubled < count) doubled *= 2;
    return doubled;
}

void* allocateElements(std::int64_t capacity, std::size_t elementSize) {
    // A size that nobody can serve is still asked for, so that the allocator sees and refuses it.
    if (capacity > INT32_MAX) return kelmo_malloc(SIZE_MAX);
    return kelmo_malloc(static_cast<std::size_t>(capacity) * elementSize);
}

}  // namespace KUtils
