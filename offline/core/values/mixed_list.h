// A list whose elements are values of any kind, lists included, to any depth.
//
// The cursor only descends into elements that are there and are lists, or stand for themselves: an open that
// answers 0 changed nothing, and its close does nothing.
#pragma once

#include "core/values/value.h"

namespace Offline {

// Owner of the elements. An element may be null: a place without a type.
class ValueList {
  public:
    ValueList() = default;
    ValueList(ValueList&& other) noexcept : values(static_cast<Array<Value*>&&>(other.values)) {}
    ValueList& operator=(ValueList&&) = delete;
    ~ValueList();

    // Takes over `value`, also when it fails for want of memory.
    bool append(Value* value);
    std::int32_t count() const { return values.count(); }
    Value* at(int index) const { return values.has(index) ? values[index] : nullptr; }

  private:
    Array<Value*> values;
};

class MixedList : public Value {
  public:
    MixedList(ValueName name, ValueList&& list)
        : Value(name, KUtils::PARAM_LIST), elements(static_cast<ValueList&&>(list)) {}

    int getCount(double time) override;
    KUtils::ListHandle openListImpl(int index) override;
    KUtils::ListHandle closeList(KUtils::ListHandle handle) override;
    int getInt(int index, double time) override;
    float getFloat(int index, double time) override;
    double getDouble(int index, double time) override;
    bool getBool(int index, double time) override;
    KUtils::Vector getVector(int index, double time) override;
    KUtils::Color getColor(int index, double time) override;
    KUtils::AColor getAColor(int index, double time) override;
    KUtils::Matrix getMatrix(int index, double time) override;
    KUtils::TraceTransform getTransform(int index, double time) override;
    const char* getString(int index, double time) override;
    KUtils::PluginBase* getPlugin(int index, double time, const char** outputName) override;
    KUtils::ListView<std::int32_t> getIntList(double time) override;
    KUtils::ListView<float> getFloatList(double time) override;
    KUtils::ListView<KUtils::Vector> getVectorList(double time) override;
    KUtils::ListView<KUtils::Color> getColorList(double time) override;
    KUtils::ParamType getType(int index, double time) override;
    void eachReference(ReferenceVisitor visitor, void* user) override;

  protected:
    template <class Self>
    static Value* copyAs(const Self& from) {
        ValueList list;
        if (!copyElements(list, from.elements)) return nullptr;
        auto* copy = new Self(from.nameToCopy(), static_cast<ValueList&&>(list));
        if (copy != nullptr && !copy->hasNameOf(from)) {
            delete copy;
            copy = nullptr;
        }
        return copy;
    }

  private:
    static bool copyElements(ValueList& to, const ValueList& from);
    Value* opened() const { return depth > 0 ? elements.at(current) : nullptr; }
    // The value that answers a getter at the cursor, or null: a list's elements are not its own to convert.
    Value* answering(int index) const;

    ValueList elements;
    std::int32_t depth = 0;    // 0: the list itself; further levels are the opened element's
    std::int32_t current = 0;  // the opened element
};

}  // namespace Offline
