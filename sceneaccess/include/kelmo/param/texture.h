// The texture interfaces: how shading reads a plugin, or a constant value, as a texture.
#pragma once

#include <cstdint>

#include "kelmo/param/shader_source.h"
#include "kelmo/param/types.h"
#include "kelmo/plugin/plugin_base.h"

namespace KUtils {

// 16 bytes that belong to the renderer.
struct TextureExtra {
    std::uint64_t words[2];
};

class TextureInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_TEXTURE; }
    const char* getInterfaceName() override { return "EXT_TEXTURE"; }
    virtual AColor getTexColor(const ShadingContext& context) = 0;
    virtual void getTexColorBounds(AColor& minimum, AColor& maximum) = 0;
    virtual TextureExtra getTexExtra() { return TextureExtra{}; }
};

class TextureFloatInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_TEXTURE_FLOAT; }
    const char* getInterfaceName() override { return "EXT_TEXTURE_FLOAT"; }
    virtual float getTexFloat(const ShadingContext& context) = 0;
    virtual void getTexFloatBounds(float& minimum, float& maximum) = 0;
    virtual TextureExtra getTexExtra() { return TextureExtra{}; }
};

class TextureVectorInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_TEXTURE_VECTOR; }
    const char* getInterfaceName() override { return "EXT_TEXTURE_VECTOR"; }
    virtual Vector getTexVector(const ShadingContext& context) = 0;
    virtual void getTexVectorBounds(Vector& minimum, Vector& maximum) = 0;
    virtual TextureExtra getTexExtra() { return TextureExtra{}; }
};

class TextureIntInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_TEXTURE_INT; }
    const char* getInterfaceName() override { return "EXT_TEXTURE_INT"; }
    virtual int getTexInt(const ShadingContext& context) = 0;
};

class TextureMatrixInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_TEXTURE_MATRIX; }
    const char* getInterfaceName() override { return "EXT_TEXTURE_MATRIX"; }
    virtual Matrix getTexMatrix(const ShadingContext& context) = 0;
};

class TextureTransformInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_TEXTURE_TRANSFORM; }
    const char* getInterfaceName() override { return "EXT_TEXTURE_TRANSFORM"; }
    virtual ShadingTransform getTexTransform(const ShadingContext& context) = 0;
};

// A texture that can write itself as shader text.
class RTTexInterface : public PluginInterface {
  public:
    std::uint32_t getInterfaceID() override { return EXT_RTTEX; }
    const char* getInterfaceName() override { return "EXT_RTTEX"; }
    virtual int reservedQuery() { return 0; }
    virtual void reservedNotify() {}

    // Writes the text of `section` into `source`; 1 when something was written, else 0. The first two
    // arguments are the renderer's own. `context` may be null.
    virtual int writeShaderSource(void* reserved1, void* reserved2, const char* section, ShaderSource* source,
                                  const EvaluationContext* context) = 0;
};

}  // namespace KUtils
