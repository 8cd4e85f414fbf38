#include "params/list/list_params.h"

namespace KUtils {

KelmoPluginParameter* DefIntListParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefFloatListParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefDoubleListParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefVectorListParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefColorListParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefAColorListParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefMatrixListParam::clone() { return wholeCopy(*this); }
KelmoPluginParameter* DefTransformListParam::clone() { return wholeCopy(*this); }

void DefDoubleListParam::setDoubleList(const ListView<double>& values) {
    double* place = resizedTo(values);
    if (place != nullptr) std::memcpy(place, values.data, static_cast<std::size_t>(values.count) * sizeof(double));
}

ListView<double> DefDoubleListParam::getDoubleList() { return ownedCopy(); }

void DefTransformListParam::setTransformList(const ListView<Transform>& values) {
    TraceTransform* place = resizedTo(values);
    if (place == nullptr) return;
    for (std::int32_t i = 0; i < values.count; ++i) place[i] = widened(values.data[i]);
}

ListView<TraceTransform> DefTransformListParam::getTransformList() { return ownedCopy(); }

}  // namespace KUtils
