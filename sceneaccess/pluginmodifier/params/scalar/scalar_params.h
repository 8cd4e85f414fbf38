// The scalar values of the table's types: one value under a parameter name, which is also a constant
// texture. A new one is a row of the table (base/value_type.h) and a class here.
//
// Constructors take (name, value, owns name). Ownership of the name: see DefParamBase.
#pragma once

#include "params/scalar/scalar_base.h"

namespace KUtils {

template <class T, class... Extra>
using ScalarParam = ElementAccess<ScalarValue<T, Extra...>>;

class DefIntParam final : public ScalarParam<std::int32_t> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefFloatParam final : public ScalarParam<float> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefDoubleParam final : public ScalarParam<double> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefVectorParam final : public ScalarParam<Vector> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefColorParam final : public ScalarParam<Color> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

class DefAColorParam final : public ScalarParam<AColor> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

// The one that is a matrix texture too.
class DefMatrixParam final : public ScalarParam<Matrix, TextureMatrixInterface> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
    PluginInterface* getInterface(InterfaceID id) override;
    Matrix getTexMatrix(const ShadingContext& context) override;
};

class DefTransformParam final : public ScalarParam<TraceTransform> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override;
};

}  // namespace KUtils
