// What one element of a value is: its type code, its C++ type, and how it is read as other types. Everything
// that depends on the kind of an element is generated from here; visitKind() is the table.
//
// Ownership: elements are plain bytes. Texts and output names in them belong to the value object that holds the
// element, which makes them with duplicate() and lets go of them with release().
#pragma once

#include <climits>
#include <cmath>

#include "core/plugin/offline_plugin.h"
#include "core/values/array.h"
#include "kelmo/param/param_type.h"
#include "kelmo/param/types.h"

namespace Offline {

// A reference to a plugin, or to a named output of it. It reads as none when the plugin was deleted.
struct PluginRef {
    OfflinePlugin* plugin;
    char* output;  // kelmo_malloc'ed; null: the plugin itself
};

// What an element answers to the types that it is not, and what plain bytes need for a copy.
template <class T, KUtils::ParamType TypeCode>
struct ElementKind {
    using Element = T;
    static constexpr KUtils::ParamType CODE = TypeCode;

    static int toInt(const T&) { return 0; }
    static float toFloat(const T&) { return 0.0f; }
    static double toDouble(const T&) { return 0.0; }
    static bool toBool(const T&) { return false; }
    static KUtils::Vector toVector(const T&) { return KUtils::Vector{}; }
    static KUtils::Color toColor(const T&) { return KUtils::Color{}; }
    static KUtils::AColor toAColor(const T&) { return KUtils::AColor{}; }
    static KUtils::Matrix toMatrix(const T&) { return KUtils::Matrix{}; }
    static KUtils::TraceTransform toTransform(const T&) { return KUtils::TraceTransform{}; }
    static const char* toText(const T&) { return nullptr; }
    static KUtils::PluginBase* toPlugin(const T&, const char**) { return nullptr; }

    static bool duplicate(T& to, const T& from) {
        to = from;
        return true;
    }
    static void release(T&) {}
};

// Toward zero; what no int can hold reads as the smallest one.
inline int truncated(double value) {
    return value > -2147483649.0 && value < 2147483648.0 ? static_cast<int>(value) : INT_MIN;
}

inline float greyOf(const KUtils::Color& color) { return (color.g + color.r + color.b) * 0.33333334f; }

struct IntKind : ElementKind<std::int32_t, KUtils::PARAM_INT> {
    static int toInt(const Element& value) { return value; }
    static float toFloat(const Element& value) { return static_cast<float>(value); }
    static double toDouble(const Element& value) { return value; }
    static bool toBool(const Element& value) { return value != 0; }
};

struct BoolKind : IntKind {
    static constexpr KUtils::ParamType CODE = KUtils::PARAM_BOOL;
};

struct FloatKind : ElementKind<float, KUtils::PARAM_FLOAT> {
    static int toInt(const Element& value) { return truncated(static_cast<double>(value)); }
    static float toFloat(const Element& value) { return value; }
    static double toDouble(const Element& value) { return static_cast<double>(value); }
    static bool toBool(const Element& value) { return std::fabs(value) >= 1e-12f; }
    static KUtils::Color toColor(const Element& value) { return {value, value, value}; }
    static KUtils::AColor toAColor(const Element& value) { return {{value, value, value}, 1.0f}; }
};

struct DoubleKind : ElementKind<double, KUtils::PARAM_DOUBLE> {
    static int toInt(const Element& value) { return truncated(value); }
    static float toFloat(const Element& value) { return static_cast<float>(value); }
    static double toDouble(const Element& value) { return value; }
    static bool toBool(const Element& value) { return std::fabs(value) >= static_cast<double>(1e-12f); }
    static KUtils::Color toColor(const Element& value) { return FloatKind::toColor(toFloat(value)); }
    static KUtils::AColor toAColor(const Element& value) { return FloatKind::toAColor(toFloat(value)); }
};

struct VectorKind : ElementKind<KUtils::Vector, KUtils::PARAM_VECTOR> {
    static KUtils::Vector toVector(const Element& value) { return value; }
};

struct ColorKind : ElementKind<KUtils::Color, KUtils::PARAM_COLOR> {
    static float toFloat(const Element& value) { return greyOf(value); }
    static KUtils::Color toColor(const Element& value) { return value; }
    static KUtils::AColor toAColor(const Element& value) { return {value, 1.0f}; }
};

struct AColorKind : ElementKind<KUtils::AColor, KUtils::PARAM_ACOLOR> {
    static float toFloat(const Element& value) { return greyOf(value.color); }
    static KUtils::Color toColor(const Element& value) { return value.color; }
    static KUtils::AColor toAColor(const Element& value) { return value; }
};

struct MatrixKind : ElementKind<KUtils::Matrix, KUtils::PARAM_MATRIX> {
    static KUtils::Matrix toMatrix(const Element& value) { return value; }
    static KUtils::TraceTransform toTransform(const Element& value) { return {value, {0.0, 0.0, 0.0}}; }
};

struct TransformKind : ElementKind<KUtils::TraceTransform, KUtils::PARAM_TRANSFORM> {
    static KUtils::Matrix toMatrix(const Element& value) { return value.matrix; }
    static KUtils::TraceTransform toTransform(const Element& value) { return value; }
};

struct StringKind : ElementKind<char*, KUtils::PARAM_STRING> {
    static const char* toText(const Element& value) { return value; }
    static bool duplicate(Element& to, const Element& from) {
        to = copyText(from);
        return to != nullptr || from == nullptr;
    }
    static void release(Element& value) { freeText(value); }
};

struct ReferenceKind : ElementKind<PluginRef, KUtils::PARAM_PLUGIN> {
    static KUtils::PluginBase* toPlugin(const Element& value, const char** outputName) {
        const bool there = value.plugin != nullptr && value.plugin->isAlive();
        if (outputName != nullptr) *outputName = there ? value.output : nullptr;
        return there ? static_cast<KUtils::NamedPlugin*>(value.plugin) : nullptr;
    }
    static bool duplicate(Element& to, const Element& from) {
        to = {from.plugin, copyText(from.output)};
        return to.output != nullptr || from.output == nullptr;
    }
    static void release(Element& value) { freeText(value.output); }
};

// Calls `visitor` with the kind of a type code from 0 to 10; false for every other code.
template <class Visitor>
bool visitKind(int code, Visitor&& visitor) {
    switch (code) {
        case KUtils::PARAM_INT:
            return visitor(IntKind{}), true;
        case KUtils::PARAM_FLOAT:
            return visitor(FloatKind{}), true;
        case KUtils::PARAM_DOUBLE:
            return visitor(DoubleKind{}), true;
        case KUtils::PARAM_BOOL:
            return visitor(BoolKind{}), true;
        case KUtils::PARAM_VECTOR:
            return visitor(VectorKind{}), true;
        case KUtils::PARAM_COLOR:
            return visitor(ColorKind{}), true;
        case KUtils::PARAM_ACOLOR:
            return visitor(AColorKind{}), true;
        case KUtils::PARAM_MATRIX:
            return visitor(MatrixKind{}), true;
        case KUtils::PARAM_TRANSFORM:
            return visitor(TransformKind{}), true;
        case KUtils::PARAM_STRING:
            return visitor(StringKind{}), true;
        case KUtils::PARAM_PLUGIN:
            return visitor(ReferenceKind{}), true;
        default:
            return false;
    }
}

// The kind that a plain (untagged) value of a texture type has, and its references aside: 11 is a colour here.
constexpr int plainCode(int code) {
    switch (code) {
        case KUtils::PARAM_TEXTURE:
            return KUtils::PARAM_COLOR;
        case KUtils::PARAM_TEXTURE_FLOAT:
            return KUtils::PARAM_FLOAT;
        case KUtils::PARAM_TEXTURE_INT:
            return KUtils::PARAM_INT;
        case KUtils::PARAM_TEXTURE_VECTOR:
            return KUtils::PARAM_VECTOR;
        case KUtils::PARAM_TEXTURE_MATRIX:
            return KUtils::PARAM_MATRIX;
        case KUtils::PARAM_TEXTURE_TRANSFORM:
            return KUtils::PARAM_TRANSFORM;
        default:
            return code;
    }
}

}  // namespace Offline
