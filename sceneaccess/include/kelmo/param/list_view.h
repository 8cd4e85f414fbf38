// List views: how whole arrays cross the border.
//
// A borrowed view (owned 0) points into the parameter's own storage and is valid only while the
// parameter is unchanged. An owned view carries a shared record and is given back with releaseView.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "kelmo/core/allocator.h"

namespace KUtils {

// Trivial on purpose: a destructor would change how a view is returned.
template <class T>
struct ListView {
    T* data;       // null when empty
    void* shared;  // SharedArray or SharedForeignArray; null in a borrowed view
    std::int32_t count;
    std::int32_t owned;  // 0 borrowed, 1 SharedArray, 2 SharedForeignArray
};

// The shared record of a view with owned 1. `data` was allocated through `allocate`.
struct SharedArray {
    AllocFunction allocate;
    FreeFunction free;
    std::atomic<std::int32_t> references;  // starts at 1
};

// The shared record of a view with owned 2: its maker frees the data.
struct SharedForeignArray {
    AllocFunction allocate;
    FreeFunction free;
    std::atomic<std::int32_t> references;
    void (*release)(void* data, std::size_t bytes, void* user);  // null: nothing to do
    void* user;
};

template <class T>
ListView<T> emptyView() {
    return ListView<T>{nullptr, nullptr, 0, 0};
}

// A borrowed view of `count` elements. An empty array has no data.
template <class T>
ListView<T> borrowedView(T* data, std::int32_t count) {
    return ListView<T>{count == 0 ? nullptr : data, nullptr, count, 0};
}

// Lets go of what `view` owns: nothing when it is borrowed or when `owned` is neither 1 nor 2.
template <class T>
void releaseView(const ListView<T>& view) {
    static_assert(std::is_trivially_copyable<ListView<T>>::value, "views are returned as bytes");
    if (view.shared == nullptr) return;
    if (view.owned == 1) {
        auto* record = static_cast<SharedArray*>(view.shared);
        if (record->references.fetch_sub(1) != 1) return;
        const FreeFunction free = record->free;
        free(view.data, sizeof(T) * static_cast<std::size_t>(view.count < 0 ? 0 : view.count));
        free(record, sizeof(SharedArray));
    } else if (view.owned == 2) {
        auto* record = static_cast<SharedForeignArray*>(view.shared);
        if (record->references.fetch_sub(1) != 1) return;
        const FreeFunction free = record->free;
        if (record->release != nullptr) {
            record->release(view.data, sizeof(T) * static_cast<std::size_t>(view.count < 0 ? 0 : view.count),
                            record->user);
        }
        free(record, sizeof(SharedForeignArray));
    }
}

}  // namespace KUtils
