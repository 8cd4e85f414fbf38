// The flat lists of the table's types. A new one is a row of the table (base/value_type.h) and a class
// here. Constructors take (name, owns name); a new list is empty.
#pragma once

#include "params/list/list_base.h"
#include "params/list/whole_array_list.h"

namespace KUtils {

template <class T>
using FlatList = ElementAccess<DefListParamBaseTyped<T>>;

class DefIntListParam final : public FlatList<std::int32_t> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefFloatListParam final : public FlatList<float> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefDoubleListParam final : public ElementAccess<WholeArrayList<double>> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
    void setDoubleList(const ListView<double>& values) override;
    ListView<double> getDoubleList() override;
};

class DefVectorListParam final : public FlatList<Vector> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefColorListParam final : public FlatList<Color> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefAColorListParam final : public FlatList<AColor> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefMatrixListParam final : public FlatList<Matrix> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefTransformListParam final : public ElementAccess<WholeArrayList<TraceTransform>> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
    void setTransformList(const ListView<Transform>& values) override;
    ListView<TraceTransform> getTransformList() override;
};

}  // namespace KUtils
