// The texture side of DefParamBase: a constant that answers from its own getters, and its shader text.
#include <cstring>

#include "params/base/param_base.h"
#include "params/base/value_type.h"

namespace KUtils {

AColor DefParamBase::getTexColor(const ShadingContext&) { return getAColor(0, 0.0); }
void DefParamBase::getTexColorBounds(AColor& minimum, AColor& maximum) { minimum = maximum = getAColor(0, 0.0); }

float DefParamBase::getTexFloat(const ShadingContext&) { return getFloat(0, 0.0); }
void DefParamBase::getTexFloatBounds(float& minimum, float& maximum) { minimum = maximum = getFloat(0, 0.0); }

int DefParamBase::getTexInt(const ShadingContext&) { return getInt(0, 0.0); }

Vector DefParamBase::getTexVector(const ShadingContext&) { return getVector(0, 0.0); }
void DefParamBase::getTexVectorBounds(Vector& minimum, Vector& maximum) { minimum = maximum = getVector(0, 0.0); }

ShadingTransform DefParamBase::getTexTransform(const ShadingContext&) {
    const TraceTransform transform = getTransform(0, 0.0);
    ShadingTransform result{};
    for (int i = 0; i < 3; ++i) {
        const Vector& column = transform.matrix.columns[i];
        result.lanes[i][0] = column.x;
        result.lanes[i][1] = column.y;
        result.lanes[i][2] = column.z;
        result.lanes[3][i] = narrowed(transform.offset[i]);
    }
    return result;
}

namespace {

AColor allFour(float value) { return AColor{{value, value, value}, value}; }

// What the shader text shows. A number stands in all four places, the alpha too.
AColor shaderColor(KelmoPluginParameter& value, double time) {
    switch (value.getType(0, 0.0)) {
        case PARAM_ACOLOR:
            return value.getAColor(0, time);
        case PARAM_COLOR:
            return AColor{value.getColor(0, time), 1.0f};
        case PARAM_DOUBLE:
            return allFour(narrowed(value.getDouble(0, time)));
        case PARAM_FLOAT:
            return allFour(value.getFloat(0, time));
        case PARAM_INT:
            return allFour(static_cast<float>(value.getInt(0, time)));
        default:
            return AColor{};
    }
}

}  // namespace

int DefParamBase::writeShaderSource(void*, void*, const char* section, ShaderSource* source,
                                    const EvaluationContext* context) {
    if (section == nullptr || source == nullptr) return 0;
    if (std::strcmp(section, "ParamList") == 0) return 0;
    if (std::strcmp(section, "MaterialDescriptor") != 0) return 0;
    const EvaluationState* state = context != nullptr ? context->getEvaluationState() : nullptr;
    const AColor shown = shaderColor(*this, state != nullptr ? state->time : 0.0);
    source->printf("color %f %f %f %f\n", static_cast<double>(shown.color.r), static_cast<double>(shown.color.g),
                   static_cast<double>(shown.color.b), static_cast<double>(shown.alpha));
    return 1;
}

}  // namespace KUtils
