// The growable array record of every list value: {count, step, capacity, data}.
//
// Ownership: the record is plain bytes and frees nothing by itself; whoever holds it calls release().
// The block is in the core's heap. Elements are moved bytewise when the block is replaced.
// Errors: an operation that cannot have its memory returns false (null) and changes nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "kelmo/core/allocator.h"
#include "kelmo/param/list_view.h"

namespace KUtils {

enum class Growth { Stepped, Exact };

// The capacity of an array that grows to `count` elements, which is above `capacity`. With a step it is
// a multiple of it, and a count that is a multiple already gets a whole step more.
std::int64_t grownCapacity(std::int64_t count, std::int32_t capacity, std::int32_t step, Growth growth);

// A block of `capacity` elements; null when it cannot be had, or when an int32 cannot count it.
void* allocateElements(std::int64_t capacity, std::size_t elementSize);

// How elements begin, end and are copied. Elements that own something specialise it.
template <class T>
struct ElementLife {
    // No content is promised for new elements; zeros make a forgotten one harmless.
    static void initialise(T* first, std::size_t count) {
        std::memset(static_cast<void*>(first), 0, count * sizeof(T));
    }
    static void dispose(T*, std::size_t) {}
    // Copies into raw memory. A part of an element that cannot be copied is absent in the copy.
    static void copy(T* to, const T* from, std::size_t count) {
        std::memcpy(static_cast<void*>(to), from, count * sizeof(T));
    }
};

template <class T>
struct ArrayRecord {
    std::int32_t count = 0;
    std::int32_t step = 100;
    std::int32_t capacity = 0;
    T* data = nullptr;

    bool holds(int index) const { return static_cast<std::uint32_t>(index) < static_cast<std::uint32_t>(count); }

    // Element `index`, or null when there is none.
    T* at(int index) const { return holds(index) ? data + index : nullptr; }

    // Makes the count `wanted` (below zero: 0). Inside the capacity nothing is touched, so that what an
    // earlier, larger count left behind comes back.
    bool resize(std::int64_t wanted, Growth growth) {
        if (wanted < 0) wanted = 0;
        if (wanted > capacity && !reallocate(grownCapacity(wanted, capacity, step, growth))) return false;
        count = static_cast<std::int32_t>(wanted);
        return true;
    }

    // The place of a new last element, or null. It may hold an element of an earlier, larger count.
    T* append() { return resize(std::int64_t{count} + 1, Growth::Stepped) ? data + (count - 1) : nullptr; }

    // Makes the capacity at least `wanted`, and exactly that when it grows; the count stays.
    bool ensureCapacity(std::int64_t wanted) { return wanted <= capacity || reallocate(wanted); }

    // Fills this empty record with a copy of the elements of `source`; the capacity is exactly their
    // count. When memory is short this record stays empty, so the counts tell whether it is a copy.
    void copyElements(const ArrayRecord& source) {
        if (source.count == 0) return;
        auto* block = static_cast<T*>(allocateElements(source.count, sizeof(T)));
        if (block == nullptr) return;
        data = block;
        count = capacity = source.count;
        ElementLife<T>::copy(data, source.data, static_cast<std::size_t>(count));
    }

    // Ends every element of the whole capacity and frees the block.
    void release() {
        T* block = data;
        const auto elements = static_cast<std::size_t>(capacity);
        count = capacity = 0;
        data = nullptr;
        if (block == nullptr) return;
        ElementLife<T>::dispose(block, elements);
        kelmo_free(block, elements * sizeof(T));
    }

    ListView<T> view() const { return borrowedView(data, count); }

  private:
    // The elements in use move over; those that an earlier, larger count left behind end here.
    bool reallocate(std::int64_t newCapacity) {
        auto* block = static_cast<T*>(allocateElements(newCapacity, sizeof(T)));
        if (block == nullptr) return false;
        const auto used = static_cast<std::size_t>(count);
        if (data != nullptr) {
            std::memcpy(static_cast<void*>(block), data, used * sizeof(T));
            ElementLife<T>::dispose(data + used, static_cast<std::size_t>(capacity) - used);
            kelmo_free(data, static_cast<std::size_t>(capacity) * sizeof(T));
        }
        ElementLife<T>::initialise(block + used, static_cast<std::size_t>(newCapacity) - used);
        data = block;
        capacity = static_cast<std::int32_t>(newCapacity);
        return true;
    }
};

}  // namespace KUtils
