#include "params/scalar/scalar_params.h"

namespace KUtils {

KelmoPluginParameter* DefIntParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefFloatParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefDoubleParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefVectorParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefColorParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefAColorParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefMatrixParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefTransformParam::clone() { return wholeCopy(*this); }

PluginInterface* DefMatrixParam::getInterface(InterfaceID id) {
    if (static_cast<std::uint32_t>(id) == EXT_TEXTURE_MATRIX) return static_cast<TextureMatrixInterface*>(this);
    return ElementAccess::getInterface(id);
}

Matrix DefMatrixParam::getTexMatrix(const ShadingContext&) { return getMatrix(0, 0.0); }

}  // namespace KUtils
