// What the flat lists share: the cursor depth, the element array, the counts and the list views.
//
// Errors: memory that cannot be had leaves the list as it was. An element that does not exist reads as
// the zero answer.
#pragma once

#include <cstdint>
#include <type_traits>

#include "kelmo/param/settable.h"
#include "params/base/array_record.h"
#include "params/base/element_access.h"
#include "params/base/param_base.h"
#include "params/base/settable_cloneable.h"
#include "params/base/whole_copy.h"

namespace KUtils {

// A flat list answers only at depth 0, but counts every open and close, below zero too.
class DefListParamBase : public DefParamBase {
  public:
    DefListParamBase(const char* name, bool ownsName) noexcept : DefParamBase(name, ownsName), depth(0) {}

    ListHandle openListImpl(int) override {
        ++depth;
        return 0;
    }
    ListHandle closeList(ListHandle) override { return --depth; }

  protected:
    std::int32_t depth;
};

template <class T>
class DefListParamBaseTyped : public DefListParamBase,
                              public KelmoSettableParamInterface,
                              public KelmoCloneableParamInterface {
  public:
    using Element = T;

    DefListParamBaseTyped(const char* name, bool ownsName) noexcept : DefListParamBase(name, ownsName) {}
    // Elements that could not be copied are absent; clone refuses such a copy.
    DefListParamBaseTyped(const DefListParamBaseTyped& source) noexcept
        : DefListParamBase(source), KelmoSettableParamInterface(source), KelmoCloneableParamInterface(source) {
        elements.copyElements(source.elements);
    }
    ~DefListParamBaseTyped() override { elements.release(); }

    PluginInterface* getInterface(InterfaceID id) override {
        PluginInterface* part = settableOrCloneable(*this, id);
        return part != nullptr ? part : DefListParamBase::getInterface(id);
    }

    using DefListParamBase::getPlugin;
    PluginBase* getPlugin() override { return this; }

    int getCount(double) override { return depth == 0 ? elements.count : -1; }
    ParamType getType(int, double) override { return ValueType<T>::code; }

    ListView<std::int32_t> getIntList(double) override { return viewOf<std::int32_t>(); }
    ListView<float> getFloatList(double) override { return viewOf<float>(); }
    ListView<Vector> getVectorList(double) override { return viewOf<Vector>(); }
    ListView<Color> getColorList(double) override { return viewOf<Color>(); }

    void setCount(int count) override { elements.resize(count, Growth::Exact); }

    // Makes room and empties the list.
    void reserve(int capacity) override {
        if (elements.ensureCapacity(capacity)) elements.count = 0;
    }

    bool isWholeCopyOf(const DefListParamBaseTyped& source) const {
        return DefParamBase::isWholeCopyOf(source) && elements.count == source.elements.count;
    }

  protected:
    const T* elementAt(int index) const { return elements.at(index); }
    // Any index outside the list appends.
    T* slotFor(int index) { return elements.holds(index) ? elements.data + index : elements.append(); }

    ArrayRecord<T> elements;

  private:
    template <class Wanted>
    ListView<Wanted> viewOf() const {
        if constexpr (std::is_same<T, Wanted>::value) {
            return elements.view();
        } else {
            return emptyView<Wanted>();
        }
    }
};

}  // namespace KUtils
