// Parameter type codes. They are compared as numbers everywhere; the gaps are part of the contract.
#pragma once

#include <cstdint>

namespace KUtils {

enum ParamType : std::int32_t {
    PARAM_INT = 0,
    PARAM_FLOAT = 1,
    PARAM_DOUBLE = 2,
    PARAM_BOOL = 3,
    PARAM_VECTOR = 4,
    PARAM_COLOR = 5,
    PARAM_ACOLOR = 6,
    PARAM_MATRIX = 7,
    PARAM_TRANSFORM = 8,
    PARAM_STRING = 9,
    PARAM_PLUGIN = 10,
    PARAM_TEXTURE = 11,
    PARAM_LIST = 12,
    PARAM_TEXTURE_FLOAT = 13,
    PARAM_TEXTURE_INT = 14,
    PARAM_TEXTURE_VECTOR = 15,
    PARAM_TEXTURE_MATRIX = 16,
    PARAM_TEXTURE_TRANSFORM = 17,

    // Only in declarations: output parameters. No value object answers them.
    PARAM_OUTPUT_TEXTURE = 1000,
    PARAM_OUTPUT_TEXTURE_FLOAT = 1001,
    PARAM_OUTPUT_TEXTURE_INT = 1002,
    PARAM_OUTPUT_TEXTURE_VECTOR = 1003,
    PARAM_OUTPUT_TEXTURE_MATRIX = 1004,
    PARAM_OUTPUT_TEXTURE_TRANSFORM = 1005,

    PARAM_UNKNOWN = 10000,
};

// True for the texture codes, which are read as plugin references.
constexpr bool isTextureType(std::int32_t type) {
    return type == PARAM_TEXTURE || (type >= PARAM_TEXTURE_FLOAT && type <= PARAM_TEXTURE_TRANSFORM);
}

// True for the declared codes of output parameters; negative codes wrap and are false.
constexpr bool isOutputType(std::int32_t type) {
    return static_cast<std::uint32_t>(type) - static_cast<std::uint32_t>(PARAM_OUTPUT_TEXTURE) <= 5u;
}

}  // namespace KUtils
