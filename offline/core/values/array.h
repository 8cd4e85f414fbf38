// A growing array of plain elements in the core's heap. Nothing throws: what cannot grow says so.
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "kelmo/core/allocator.h"

namespace Offline {

template <class T>
class Array {
    static_assert(std::is_trivially_copyable<T>::value, "elements are moved as bytes");

  public:
    Array() = default;
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;
    Array(Array&& other) noexcept : elements(other.elements), used(other.used), capacity(other.capacity) {
        other.forget();
    }
    Array& operator=(Array&& other) noexcept {
        if (this == &other) return *this;
        kelmo_free(elements, bytes(capacity));
        elements = other.elements;
        used = other.used;
        capacity = other.capacity;
        other.forget();
        return *this;
    }
    ~Array() { kelmo_free(elements, bytes(capacity)); }

    std::int32_t count() const { return used; }
    bool has(int index) const { return index >= 0 && index < used; }
    T* data() { return elements; }
    T& operator[](int index) { return elements[index]; }
    const T& operator[](int index) const { return elements[index]; }
    T* begin() { return elements; }
    T* end() { return elements + used; }
    const T* begin() const { return elements; }
    const T* end() const { return elements + used; }

    // False, and nothing changed, when there is no memory.
    bool append(const T& element) {
        if (used == capacity && !resize(capacity < 4 ? 4 : capacity > INT32_MAX / 2 ? INT32_MAX : capacity * 2))
            return false;
        elements[used++] = element;
        return true;
    }

    // Lets go of the room that is not used. What cannot shrink stays.
    void fit() {
        if (used == 0) {
            *this = Array();
        } else if (used < capacity) {
            resize(used);
        }
    }

    // Becomes a copy of `other`; false when there is no memory.
    bool copy(const Array& other) {
        if (capacity < other.used && !resize(other.used)) return false;
        if (other.used != 0) std::memcpy(elements, other.elements, bytes(other.used));
        used = other.used;
        return true;
    }

  private:
    static std::size_t bytes(std::int32_t count) { return sizeof(T) * static_cast<std::size_t>(count); }

    bool resize(std::int32_t count) {
        if (count <= used && count != used) return false;
        void* block = kelmo_realloc(elements, bytes(count));
        if (block == nullptr) return false;
        elements = static_cast<T*>(block);
        capacity = count;
        return true;
    }

    void forget() {
        elements = nullptr;
        used = capacity = 0;
    }

    T* elements = nullptr;
    std::int32_t used = 0;
    std::int32_t capacity = 0;
};

// A copy of a text in the core's heap; null for null, and when there is no memory.
inline char* copyText(const char* text) {
    if (text == nullptr) return nullptr;
    const std::size_t size = std::strlen(text) + 1;
    auto* copy = static_cast<char*>(kelmo_malloc(size));
    if (copy != nullptr) std::memcpy(copy, text, size);
    return copy;
}

inline void freeText(const char* text) {
    if (text != nullptr) kelmo_free(const_cast<char*>(text), std::strlen(text) + 1);
}

}  // namespace Offline
