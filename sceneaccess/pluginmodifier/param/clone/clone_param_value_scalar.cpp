// Which class holds a single value, by the pair of the source's type and the requested code.
#include "param/clone/clone_param_value.h"
#include "params/scalar/plugin_param.h"
#include "params/scalar/scalar_params.h"
#include "params/scalar/string_param.h"

namespace KUtils {

namespace {

// The source's name goes with the source.
constexpr bool OWNS_NAME = true;

OwnedValue makeFromNumber(const char* name, std::int32_t code) {
    switch (code) {
        case PARAM_INT:
        case PARAM_TEXTURE_INT:
        case PARAM_BOOL:  // bools are held as ints
            return OwnedValue(new DefIntParam(name, 0, OWNS_NAME));
        case PARAM_FLOAT:
        case PARAM_TEXTURE_FLOAT:
            return OwnedValue(new DefFloatParam(name, 0.0f, OWNS_NAME));
        case PARAM_DOUBLE:
            return OwnedValue(new DefDoubleParam(name, 0.0, OWNS_NAME));
        default:
            return nullptr;
    }
}

OwnedValue makeFromColor(const char* name, std::int32_t code) {
    switch (code) {
        case PARAM_COLOR:
        case PARAM_TEXTURE:
            return OwnedValue(new DefColorParam(name, Color{}, OWNS_NAME));
        case PARAM_ACOLOR:
            return OwnedValue(new DefAColorParam(name, AColor{Color{}, 1.0f}, OWNS_NAME));
        default:
            return nullptr;
    }
}

OwnedValue makeFromAColor(const char* name, std::int32_t code) {
    switch (code) {
        case PARAM_ACOLOR:
        case PARAM_TEXTURE:
            return OwnedValue(new DefAColorParam(name, AColor{}, OWNS_NAME));
        case PARAM_COLOR:
            return OwnedValue(new DefColorParam(name, Color{}, OWNS_NAME));
        default:
            return nullptr;
    }
}

OwnedValue makeFromMatrix(const char* name, std::int32_t code) {
    switch (code) {
        case PARAM_MATRIX:
        case PARAM_TEXTURE_MATRIX:
            return OwnedValue(new DefMatrixParam(name, Matrix{}, OWNS_NAME));
        case PARAM_TRANSFORM:
        case PARAM_TEXTURE_TRANSFORM:
            return OwnedValue(new DefTransformParam(name, TraceTransform{}, OWNS_NAME));
        default:
            return nullptr;
    }
}

OwnedValue makeReference(const char* name, bool allowed) {
    return allowed ? OwnedValue(new DefPluginParam(name, nullptr, nullptr, OWNS_NAME)) : nullptr;
}

}  // namespace

OwnedValue makeScalarValue(KelmoPluginParameter& source, std::int32_t code) {
    const char* name = source.getName();
    const std::int32_t type = source.getType(0, 0.0);
    switch (type) {
        case PARAM_INT:
        case PARAM_FLOAT:
        case PARAM_DOUBLE:
        case PARAM_BOOL:
            return makeFromNumber(name, code);
        case PARAM_VECTOR:
            if (code != PARAM_VECTOR && code != PARAM_TEXTURE_VECTOR) return nullptr;
            return OwnedValue(new DefVectorParam(name, Vector{}, OWNS_NAME));
        case PARAM_COLOR:
            return makeFromColor(name, code);
        case PARAM_ACOLOR:
            return makeFromAColor(name, code);
        case PARAM_MATRIX:
        case PARAM_TRANSFORM:
            return makeFromMatrix(name, code);
        case PARAM_STRING:
            return code == PARAM_STRING ? OwnedValue(new DefStringParam(name, "", OWNS_NAME)) : nullptr;
        case PARAM_PLUGIN:
            return makeReference(name,
                                 code == PARAM_PLUGIN || (isTextureType(code) && pluginFeedsTexture(source, code)));
        case PARAM_OUTPUT_TEXTURE:
            return makeReference(name,
                                 code == PARAM_PLUGIN || (isTextureType(code) && outputFeedsTexture(source, code)));
        default:
            return nullptr;
    }
}

}  // namespace KUtils
