// Calls through an object's raw table of virtual functions, as the Itanium C++ ABI lays it out on x86-64:
// a destructor takes two entries, and a structure of at most 16 bytes is returned in registers.
#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

#include "kelmo/param/texture.h"
#include "support/check.h"

constexpr int DESTRUCTOR_SLOTS = 2;

inline void* tableEntry(const void* object, int slot) {
    void* const* table;
    std::memcpy(&table, object, sizeof table);
    return table[slot];
}

// What a small structure looks like in the registers it is returned in.
template <class Result>
struct Registers {
    double low, high;
};
template <>
struct Registers<KUtils::TextureExtra> {
    std::uint64_t low, high;
};

template <class Result, class... Arguments>
Result callSlot(const void* object, int slot, Arguments... arguments) {
    void* entry = tableEntry(object, slot);
    if constexpr (!std::is_class<Result>::value) {
        return reinterpret_cast<Result (*)(const void*, Arguments...)>(entry)(object, arguments...);
    } else if constexpr (sizeof(Result) <= 16) {
        using Image = Registers<Result>;
        const Image image = reinterpret_cast<Image (*)(const void*, Arguments...)>(entry)(object, arguments...);
        Result result;
        std::memcpy(&result, &image, sizeof result);
        return result;
    } else {
        Result result;
        Result* place =
            reinterpret_cast<Result* (*)(Result*, const void*, Arguments...)>(entry)(&result, object, arguments...);
        CHECK_EQ(static_cast<const void*>(place), static_cast<const void*>(&result));
        return result;
    }
}

// Runs the destructor and leaves the memory alone.
inline void destroyThroughTable(void* object) { callSlot<void>(object, 0); }

// Runs the destructor and frees.
inline void deleteThroughTable(void* object) { callSlot<void>(object, 1); }
