// The table of value types: one row for each C++ type that a value can hold, with its type code and
// with what it is read as and written from. Scalars, flat lists and lists of lists are made from it.
//
// A pair that has no `read` here is answered by the general conversions of DefParamBase; a pair that
// has no `write` is a setter that does nothing.
#pragma once

#include <cmath>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "kelmo/param/param_type.h"
#include "kelmo/param/types.h"
#include "kelmo/plugin/plugin_base.h"
#include "params/shared_text.h"

namespace KUtils {

// Toward zero; what does not fit, and NaN, is the smallest int, as the hardware answers.
inline std::int32_t truncated(double value) {
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<std::int32_t>(value) : INT32_MIN;
}

inline float narrowed(double value) { return static_cast<float>(value); }

// The grey value of a colour, in this order and in single precision.
inline float grey(const Color& color) { return ((color.g + color.r) + color.b) * 0.33333334f; }

inline TraceTransform widened(const Transform& transform) {
    return TraceTransform{transform.matrix, {transform.offset.x, transform.offset.y, transform.offset.z}};
}

template <class Stored>
struct ValueType;

template <>
struct ValueType<std::int32_t> {
    static constexpr ParamType code = PARAM_INT;
    static void read(std::int32_t value, std::int32_t& to) { to = value; }
    static void read(std::int32_t value, float& to) { to = static_cast<float>(value); }
    static void read(std::int32_t value, double& to) { to = value; }
    static void read(std::int32_t value, bool& to) { to = value != 0; }
    static void write(std::int32_t& value, std::int32_t from) { value = from; }
    static void write(std::int32_t& value, float from) { value = truncated(from); }
    static void write(std::int32_t& value, double from) { value = truncated(from); }
    static void write(std::int32_t& value, bool from) { value = from ? 1 : 0; }
};

template <>
struct ValueType<float> {
    static constexpr ParamType code = PARAM_FLOAT;
    static void read(float value, std::int32_t& to) { to = truncated(value); }
    static void read(float value, float& to) { to = value; }
    static void read(float value, double& to) { to = value; }
    static void read(float value, bool& to) { to = std::fabs(value) >= 1e-12f; }
    static void write(float& value, std::int32_t from) { value = static_cast<float>(from); }
    static void write(float& value, float from) { value = from; }
    static void write(float& value, double from) { value = narrowed(from); }
    static void write(float& value, bool from) { value = from ? 1.0f : 0.0f; }
};

template <>
struct ValueType<double> {
    static constexpr ParamType code = PARAM_DOUBLE;
    static void read(double value, std::int32_t& to) { to = truncated(value); }
    static void read(double value, float& to) { to = narrowed(value); }
    static void read(double value, double& to) { to = value; }
    // The single-precision 1e-12, widened: the renderer compares with exactly this number.
    static void read(double value, bool& to) { to = std::fabs(value) >= 9.999999960041972e-13; }
    static void write(double& value, std::int32_t from) { value = from; }
    static void write(double& value, float from) { value = from; }
    static void write(double& value, double from) { value = from; }
    static void write(double& value, bool from) { value = from ? 1.0 : 0.0; }
};

template <>
struct ValueType<Vector> {
    static constexpr ParamType code = PARAM_VECTOR;
    static void read(const Vector& value, Vector& to) { to = value; }
    static void write(Vector& value, const Vector& from) { value = from; }
};

template <>
struct ValueType<Color> {
    static constexpr ParamType code = PARAM_COLOR;
    static void read(const Color& value, Color& to) { to = value; }
    static void read(const Color& value, AColor& to) { to = AColor{value, 1.0f}; }
    static void write(Color& value, const Color& from) { value = from; }
    static void write(Color& value, const AColor& from) { value = from.color; }
};

template <>
struct ValueType<AColor> {
    static constexpr ParamType code = PARAM_ACOLOR;
    static void read(const AColor& value, Color& to) { to = value.color; }
    static void read(const AColor& value, AColor& to) { to = value; }
    static void write(AColor& value, const Color& from) { value = AColor{from, 1.0f}; }
    static void write(AColor& value, const AColor& from) { value = from; }
};

template <>
struct ValueType<Matrix> {
    static constexpr ParamType code = PARAM_MATRIX;
    static void read(const Matrix& value, Matrix& to) { to = value; }
    static void read(const Matrix& value, TraceTransform& to) { to = TraceTransform{value, {0.0, 0.0, 0.0}}; }
    static void write(Matrix& value, const Matrix& from) { value = from; }
    static void write(Matrix& value, const Transform& from) { value = from.matrix; }
};

template <>
struct ValueType<TraceTransform> {
    static constexpr ParamType code = PARAM_TRANSFORM;
    static void read(const TraceTransform& value, Matrix& to) { to = value.matrix; }
    static void read(const TraceTransform& value, TraceTransform& to) { to = value; }
    static void write(TraceTransform& value, const Matrix& from) { value = TraceTransform{from, {0.0, 0.0, 0.0}}; }
    static void write(TraceTransform& value, const Transform& from) { value = widened(from); }
};

// Texts and plugin references own or name something else; their classes read and write them.
template <>
struct ValueType<SharedText*> {
    static constexpr ParamType code = PARAM_STRING;
};

template <>
struct ValueType<PluginBase*> {
    static constexpr ParamType code = PARAM_PLUGIN;
};

// Whether the table has the pair. A pointer is no number, although it converts to bool.
template <class Stored, class Wanted, class = void>
struct HasRead : std::false_type {};
template <class Stored, class Wanted>
struct HasRead<Stored, Wanted,
               std::void_t<decltype(ValueType<Stored>::read(std::declval<const Stored&>(), std::declval<Wanted&>()))>>
    : std::true_type {};

template <class Stored, class Given, class = void>
struct HasWrite : std::false_type {};
template <class Stored, class Given>
struct HasWrite<Stored, Given,
                std::void_t<decltype(ValueType<Stored>::write(std::declval<Stored&>(), std::declval<const Given&>()))>>
    : std::negation<std::is_pointer<Given>> {};

}  // namespace KUtils
