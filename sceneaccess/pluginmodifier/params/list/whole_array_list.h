// The flat lists whose whole array can be set and read at once (doubles and transforms): they carry the
// second settable interface beside the first, and both act alike.
#pragma once

#include <new>

#include "params/list/list_base.h"

namespace KUtils {

template <class T>
class WholeArrayList : public DefListParamBaseTyped<T>, public KelmoSettableParamInterface2 {
  public:
    using DefListParamBaseTyped<T>::DefListParamBaseTyped;

    PluginInterface* getInterface(InterfaceID id) override {
        if (static_cast<std::uint32_t>(id) == EXT_SETTABLE_PARAM2)
            return static_cast<KelmoSettableParamInterface2*>(this);
        return DefListParamBaseTyped<T>::getInterface(id);
    }

    using DefListParamBaseTyped<T>::getPlugin;
    PluginBase* getPlugin() override { return this; }

    void setCount(int count) override { DefListParamBaseTyped<T>::setCount(count); }
    void reserve(int capacity) override { DefListParamBaseTyped<T>::reserve(capacity); }

  protected:
    // A copy of the elements that the caller owns; the empty view when memory is short.
    ListView<T> ownedCopy() const {
        void* place = kelmo_malloc(sizeof(SharedArray));
        if (place == nullptr) return emptyView<T>();
        auto* shared = new (place) SharedArray{kelmo_malloc, kelmo_free, {1}};
        ListView<T> view{nullptr, shared, this->elements.count, 1};
        if (view.count == 0) return view;
        const std::size_t bytes = static_cast<std::size_t>(view.count) * sizeof(T);
        view.data = static_cast<T*>(shared->allocate(bytes));
        if (view.data == nullptr) {
            kelmo_free(place, sizeof(SharedArray));
            return emptyView<T>();
        }
        std::memcpy(static_cast<void*>(view.data), this->elements.data, bytes);
        return view;
    }

    // Makes room for what `values` holds and sets the count; null when there is nothing to store.
    template <class Given>
    T* resizedTo(const ListView<Given>& values) {
        const std::int32_t count = values.data != nullptr ? values.count : 0;
        return this->elements.resize(count, Growth::Stepped) && count > 0 ? this->elements.data : nullptr;
    }
};

}  // namespace KUtils
