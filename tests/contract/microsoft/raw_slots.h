// Calls through an object's raw table of virtual functions, as Microsoft's C++ ABI lays it out on x64: a
// destructor takes one entry, which is called with a flag, and every structure is returned in the caller's
// storage, whose address comes after `this`.
#pragma once

#include <cstring>
#include <type_traits>

#include "support/check.h"

constexpr int DESTRUCTOR_SLOTS = 1;

inline void* tableEntry(const void* object, int slot) {
    void* const* table;
    std::memcpy(&table, object, sizeof table);
    return table[slot];
}

template <class Result, class... Arguments>
Result callSlot(const void* object, int slot, Arguments... arguments) {
    void* entry = tableEntry(object, slot);
    if constexpr (!std::is_class<Result>::value) {
        return reinterpret_cast<Result (*)(const void*, Arguments...)>(entry)(object, arguments...);
    } else {
        Result result;
        Result* place =
            reinterpret_cast<Result* (*)(const void*, Result*, Arguments...)>(entry)(object, &result, arguments...);
        CHECK_EQ(static_cast<const void*>(place), static_cast<const void*>(&result));
        return result;
    }
}

// The flag 0: runs the destructor and leaves the memory alone.
inline void destroyThroughTable(void* object) { callSlot<void*>(object, 0, 0u); }

// The flag 1: runs the destructor and frees.
inline void deleteThroughTable(void* object) { callSlot<void*>(object, 0, 1u); }
