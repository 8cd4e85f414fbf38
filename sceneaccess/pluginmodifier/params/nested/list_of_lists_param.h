// Lists of lists: a value is a list whose elements are lists of one type, reached with the cursor. The
// setters write only inside the opened list; they never append.
//
// Ownership: every sublist is a record of its own, with its own block; a null one is an absent list.
// Plugins are not owned.
// Errors: a list or element that does not exist counts -1 and reads as the zero answer; a write to it
// does nothing.
#pragma once

#include <cstdint>

#include "kelmo/param/settable.h"
#include "params/base/array_record.h"
#include "params/base/settable_cloneable.h"
#include "params/base/whole_copy.h"

namespace KUtils {

template <class T>
class DefListOfListsParam : public KelmoPluginParameter,
                            public KelmoCloneableParamInterface,
                            public KelmoSettableParamInterface {
  public:
    using Sublist = ArrayRecord<T>;

    DefListOfListsParam(const char* name, bool ownsName) noexcept;
    // A sublist that could not be copied is absent; clone refuses such a copy.
    DefListOfListsParam(const DefListOfListsParam& source) noexcept;
    ~DefListOfListsParam() override;

    PluginInterface* getInterface(InterfaceID id) override;
    using KelmoPluginParameter::getPlugin;
    PluginBase* getPlugin() override { return this; }
    const char* getName() override { return name; }

    int getCount(double time) override;
    ListHandle openListImpl(int index) override;
    ListHandle closeList(ListHandle handle) override;
    ParamType getType(int index, double time) override;

    // Each class answers its own type only.
    int getInt(int index, double) override { return read<std::int32_t>(index); }
    float getFloat(int index, double) override { return read<float>(index); }
    Vector getVector(int index, double) override { return read<Vector>(index); }
    PluginBase* getPlugin(int index, double, const char**) override { return read<PluginBase*>(index); }
    ListView<std::int32_t> getIntList(double) override { return view<std::int32_t>(); }
    ListView<float> getFloatList(double) override { return view<float>(); }
    ListView<Vector> getVectorList(double) override { return view<Vector>(); }

    // With the conversions of the flat lists, but only at depth 1 and only over an element.
    void setInt(int value, int index, double) override { write<std::int32_t>(value, index); }
    void setFloat(float value, int index, double) override { write<float>(value, index); }
    void setDouble(double value, int index, double) override { write<double>(value, index); }
    void setBool(bool value, int index, double) override { write<bool>(value, index); }
    void setVector(const Vector& value, int index, double) override { write<Vector>(value, index); }
    void setPluginOutput(PluginBase* plugin, const char* outputName, int index, double time) override;

    // At depth 0 all lists are replaced by `count` new, empty ones; at depth 1 the opened list is resized.
    void setCount(int count) override;
    // The same as setCount here, unlike in the flat lists.
    void reserve(int capacity) override { setCount(capacity); }

    // False when memory was too short for this copy of `source`.
    bool isWholeCopyOf(const DefListOfListsParam& source) const;

  private:
    Sublist* openedList() const { return depth >= 1 && lists.holds(currentList) ? lists.data[currentList] : nullptr; }
    void replaceLists(int count);
    template <class Wanted>
    Wanted read(int index) const;
    template <class Wanted>
    ListView<Wanted> view() const;
    T* elementToWrite(int index);
    template <class Given>
    void write(const Given& value, int index);

    ArrayRecord<Sublist*> lists;
    std::int32_t depth;
    std::int32_t currentList;
    std::int32_t secondIndex;
    const char* name;
    std::uint32_t ownsName;
};

extern template class DefListOfListsParam<std::int32_t>;
extern template class DefListOfListsParam<float>;
extern template class DefListOfListsParam<Vector>;
extern template class DefListOfListsParam<PluginBase*>;

class DefListOfListIntParam final : public DefListOfListsParam<std::int32_t> {
  public:
    using DefListOfListsParam::DefListOfListsParam;
    KelmoPluginParameter* clone() override;
};

class DefListOfListFloatParam final : public DefListOfListsParam<float> {
  public:
    using DefListOfListsParam::DefListOfListsParam;
    KelmoPluginParameter* clone() override;
};

class DefListOfListVectorParam final : public DefListOfListsParam<Vector> {
  public:
    using DefListOfListsParam::DefListOfListsParam;
    KelmoPluginParameter* clone() override;
};

class DefListOfListPluginParam final : public DefListOfListsParam<PluginBase*> {
  public:
    using DefListOfListsParam::DefListOfListsParam;
    KelmoPluginParameter* clone() override;
};

}  // namespace KUtils
