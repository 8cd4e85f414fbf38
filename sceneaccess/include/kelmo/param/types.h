// The value types of parameters. All are plain bytes: they are copied bytewise and returned through
// storage that the caller provides.
#pragma once

#include <cstdint>
#include <type_traits>

namespace KUtils {

struct Vector {
    float x, y, z;
};

struct Color {
    float r, g, b;
};

struct AColor {
    Color color;
    float alpha;
};

// Three columns, one after the other.
struct Matrix {
    Vector columns[3];
};

// The transform of the rendering core: its offset has double precision.
struct TraceTransform {
    Matrix matrix;
    alignas(8) double offset[3];
};

// The single-precision transform that the setters take.
struct Transform {
    Matrix matrix;
    Vector offset;
};

// The transform that shading reads: three columns and the offset, four lanes each, the fourth unused.
struct ShadingTransform {
    float lanes[4][4];
};

static_assert(std::is_trivially_copyable<TraceTransform>::value, "values cross the border as bytes");

}  // namespace KUtils
