// DefParamBase: the base of the standalone values. It keeps the parameter's name, converts between the
// typed getters, and offers the value as a constant texture, whatever the shading point.
//
// Ownership: the name is a private copy when the owns-name flag is set; otherwise it is the creator's
// text, which must outlive the value.
// Errors: a name that cannot be copied is null.
#pragma once

#include <cstdint>

#include "kelmo/param/plugin_parameter.h"
#include "kelmo/param/texture.h"

namespace KUtils {

// A copy of a zero-terminated text in the core's heap; null for null and when memory is short.
char* copyText(const char* text);
// Frees a text that copyText made; null is allowed.
void freeText(char* text);

class DefParamBase : public KelmoPluginParameter,
                     public RTTexInterface,
                     public TextureInterface,
                     public TextureFloatInterface,
                     public TextureIntInterface,
                     public TextureTransformInterface,
                     public TextureVectorInterface {
  public:
    // The copy is made before the object is begun, so that a derived class need not write its base parts twice.
    DefParamBase(const char* name, bool ownsName) noexcept
        : DefParamBase(Name{ownsName ? copyText(name) : name, ownsName}) {}
    DefParamBase(const DefParamBase& source) noexcept;
    ~DefParamBase() override;

    PluginInterface* getInterface(InterfaceID id) override;
    const char* getName() override { return name; }

    // The conversions, for the classes that do not read a type by themselves. They ask getType and go
    // on through the getter of that type, so they are one-directional.
    bool getBool(int index, double time) override;
    float getFloat(int index, double time) override;
    Color getColor(int index, double time) override;
    AColor getAColor(int index, double time) override;

    // The value itself: it can be plugged in as a constant texture.
    PluginBase* getPlugin(int index, double time, const char** outputName) override;
    PluginBase* getPlugin() override { return this; }

    int writeShaderSource(void* reserved1, void* reserved2, const char* section, ShaderSource* source,
                          const EvaluationContext* context) override;
    AColor getTexColor(const ShadingContext& context) override;
    void getTexColorBounds(AColor& minimum, AColor& maximum) override;
    float getTexFloat(const ShadingContext& context) override;
    void getTexFloatBounds(float& minimum, float& maximum) override;
    int getTexInt(const ShadingContext& context) override;
    ShadingTransform getTexTransform(const ShadingContext& context) override;
    Vector getTexVector(const ShadingContext& context) override;
    void getTexVectorBounds(Vector& minimum, Vector& maximum) override;

    // False when memory was too short for this copy of `source`.
    bool isWholeCopyOf(const DefParamBase& source) const { return (name == nullptr) == (source.name == nullptr); }

  private:
    struct Name {
        const char* text;
        bool isOwned;
    };
    explicit DefParamBase(const Name& kept) : ownsName(kept.isOwned ? 1 : 0), name(kept.text) {}

    std::uint32_t ownsName;
    const char* name;
};

}  // namespace KUtils
