// The owned-value set as it lies in memory: an open-addressing hash set of object addresses in which a
// key lies less than `neighbourhood` slots (cyclic) from its home slot. The host makes it and frees what
// it holds at its end; the module inserts and removes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace KUtils {

struct PointerSet {
    unsigned char* entries;  // `capacity` packed entries: 8 bytes of key, then the flag byte
    std::uint32_t capacity;  // a power of two
    std::uint32_t count;
    std::uint32_t neighbourhood;
    float shrinkLoad;           // after a removal: halve below this load
    float growLoad;             // before an insertion: double above this load
    std::uint32_t minimumSize;  // no halving when (capacity / 2) * growLoad is below this
};

constexpr std::size_t POINTER_SET_ENTRY_BYTES = 9;
constexpr std::size_t POINTER_SET_FLAG_OFFSET = 8;
constexpr unsigned char POINTER_SET_EMPTY = 1;
constexpr unsigned char POINTER_SET_IN_USE = 0;
constexpr std::uint32_t POINTER_SET_FIRST_NEIGHBOURHOOD = 4;

}  // namespace KUtils
