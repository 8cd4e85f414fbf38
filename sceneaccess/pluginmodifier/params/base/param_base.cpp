#include "params/base/param_base.h"

#include <cstring>

#include "params/base/value_type.h"

namespace KUtils {

char* copyText(const char* text) {
    if (text == nullptr) return nullptr;
    const std::size_t size = std::strlen(text) + 1;
    auto* copy = static_cast<char*>(kelmo_malloc(size));
    if (copy != nullptr) std::memcpy(copy, text, size);
    return copy;
}

// The size is not kept, and counting it again is not worth it.
void freeText(char* text) { kelmo_free(text, 0); }

// The name

DefParamBase::DefParamBase(const DefParamBase& source) noexcept
    : KelmoPluginParameter(source),
      RTTexInterface(source),
      TextureInterface(source),
      TextureFloatInterface(source),
      TextureIntInterface(source),
      TextureTransformInterface(source),
      TextureVectorInterface(source),
      ownsName(source.ownsName),
      name(source.ownsName != 0 ? copyText(source.name) : source.name) {}

DefParamBase::~DefParamBase() {
    if (ownsName != 0) freeText(const_cast<char*>(name));
}

// Interfaces

PluginInterface* DefParamBase::getInterface(InterfaceID id) {
    switch (static_cast<std::uint32_t>(id)) {
        case EXT_RTTEX:
            return static_cast<RTTexInterface*>(this);
        case EXT_TEXTURE:
            return static_cast<TextureInterface*>(this);
        case EXT_TEXTURE_FLOAT:
            return static_cast<TextureFloatInterface*>(this);
        case EXT_TEXTURE_INT:
            return static_cast<TextureIntInterface*>(this);
        case EXT_TEXTURE_TRANSFORM:
            return static_cast<TextureTransformInterface*>(this);
        case EXT_TEXTURE_VECTOR:
            return static_cast<TextureVectorInterface*>(this);
        default:
            return PluginBase::getInterface(id);
    }
}

PluginBase* DefParamBase::getPlugin(int, double, const char**) { return this; }

// Conversions

bool DefParamBase::getBool(int index, double time) { return getInt(index, time) != 0; }

float DefParamBase::getFloat(int index, double time) {
    switch (getType(index, time)) {
        case PARAM_DOUBLE:
            return narrowed(getDouble(index, time));
        case PARAM_COLOR:
            return grey(getColor(index, time));
        case PARAM_ACOLOR:
            return grey(getAColor(index, time).color);
        default:
            return 0.0f;
    }
}

namespace {

Color greyColor(float value) { return Color{value, value, value}; }

}  // namespace

Color DefParamBase::getColor(int index, double time) {
    switch (getType(index, time)) {
        case PARAM_FLOAT:
            return greyColor(getFloat(index, time));
        case PARAM_DOUBLE:
            return greyColor(narrowed(getDouble(index, time)));
        case PARAM_ACOLOR:
            return getAColor(index, time).color;
        default:
            return Color{};
    }
}

AColor DefParamBase::getAColor(int index, double time) {
    switch (getType(index, time)) {
        case PARAM_FLOAT:
            return AColor{greyColor(getFloat(index, time)), 1.0f};
        case PARAM_DOUBLE:
            return AColor{greyColor(narrowed(getDouble(index, time))), 1.0f};
        case PARAM_COLOR:
            return AColor{getColor(index, time), 1.0f};
        default:
            return AColor{};
    }
}

}  // namespace KUtils
