// How the catalogue's files spell type codes, kinds, list shapes and texture interfaces. One table for reading and
// writing.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/catalogue/plugin_type.h"
#include "kelmo/param/param_type.h"

namespace Offline {

struct TypeCodeName {
    const char* name;
    KUtils::ParamType code;
};

constexpr TypeCodeName TYPE_CODE_NAMES[] = {
    {"int", KUtils::PARAM_INT},
    {"float", KUtils::PARAM_FLOAT},
    {"double", KUtils::PARAM_DOUBLE},
    {"bool", KUtils::PARAM_BOOL},
    {"vector", KUtils::PARAM_VECTOR},
    {"color", KUtils::PARAM_COLOR},
    {"acolor", KUtils::PARAM_ACOLOR},
    {"matrix", KUtils::PARAM_MATRIX},
    {"transform", KUtils::PARAM_TRANSFORM},
    {"string", KUtils::PARAM_STRING},
    {"plugin", KUtils::PARAM_PLUGIN},
    {"texture", KUtils::PARAM_TEXTURE},
    {"list", KUtils::PARAM_LIST},
    {"texture_float", KUtils::PARAM_TEXTURE_FLOAT},
    {"texture_int", KUtils::PARAM_TEXTURE_INT},
    {"texture_vector", KUtils::PARAM_TEXTURE_VECTOR},
    {"texture_matrix", KUtils::PARAM_TEXTURE_MATRIX},
    {"texture_transform", KUtils::PARAM_TEXTURE_TRANSFORM},
    {"output_texture", KUtils::PARAM_OUTPUT_TEXTURE},
    {"output_texture_float", KUtils::PARAM_OUTPUT_TEXTURE_FLOAT},
    {"output_texture_int", KUtils::PARAM_OUTPUT_TEXTURE_INT},
    {"output_texture_vector", KUtils::PARAM_OUTPUT_TEXTURE_VECTOR},
    {"output_texture_matrix", KUtils::PARAM_OUTPUT_TEXTURE_MATRIX},
    {"output_texture_transform", KUtils::PARAM_OUTPUT_TEXTURE_TRANSFORM},
};

struct KindName {
    const char* name;
    PluginKind kind;
};

constexpr KindName KIND_NAMES[] = {
    {"geometry", PluginKind::Geometry}, {"node", PluginKind::Node},   {"material", PluginKind::Material},
    {"texture", PluginKind::Texture},   {"light", PluginKind::Light}, {"camera", PluginKind::Camera},
    {"settings", PluginKind::Settings}, {"other", PluginKind::Other},
};

struct ShapeName {
    const char* name;
    ListShape shape;
};

constexpr ShapeName SHAPE_NAMES[] = {
    {"any", ListShape::Any},         {"ints", ListShape::Ints},       {"floats", ListShape::Floats},
    {"vectors", ListShape::Vectors}, {"plugins", ListShape::Plugins}, {"map_channels", ListShape::MapChannels},
};

struct TextureOfferName {
    const char* name;
    TextureOffer offer;
};

constexpr TextureOfferName TEXTURE_OFFER_NAMES[] = {
    {"texture", OFFERS_TEXTURE},
    {"texture_float", OFFERS_TEXTURE_FLOAT},
    {"texture_int", OFFERS_TEXTURE_INT},
    {"texture_vector", OFFERS_TEXTURE_VECTOR},
    {"texture_matrix", OFFERS_TEXTURE_MATRIX},
    {"texture_transform", OFFERS_TEXTURE_TRANSFORM},
};

// The row of this name in one of the tables above, or null.
template <class Row, std::size_t N>
constexpr const Row* rowNamed(const Row (&rows)[N], std::string_view name) {
    for (const Row& row : rows) {
        if (name == row.name) return &row;
    }
    return nullptr;
}

}  // namespace Offline
