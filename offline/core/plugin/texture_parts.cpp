#include "core/plugin/texture_parts.h"

#include <new>

#include "core/catalogue/plugin_type.h"
#include "core/plugin/offline_plugin.h"
#include "kelmo/param/texture.h"

namespace Offline {
namespace {

using namespace KUtils;

// The plugin's first single parameter of one of these two codes; null: none.
const ParamDesc* firstOf(const OfflinePlugin& plugin, ParamType texture, ParamType plain) {
    const ParamTable& table = *plugin.type().params;
    for (std::int32_t i = 0; i < table.count; ++i) {
        const ParamDesc& desc = table.records[i];
        if (desc.listCount == -1 && (desc.type == texture || desc.type == plain)) return &desc;
    }
    return nullptr;
}

// The constant that the plugin answers: what `carried` reads, or what `declared` takes from the declaration.
template <class T, class Carried, class Declared>
T constantOf(const OfflinePlugin& plugin, ParamType texture, ParamType plain, Carried carried, Declared declared) {
    const ParamDesc* desc = firstOf(plugin, texture, plain);
    if (desc == nullptr) return T{};
    KelmoPluginParameter* value = plugin.find(desc->name);
    return value != nullptr ? carried(*value) : declared(*desc);
}

// What every part has: its owner.
template <class Interface>
class Part : public Interface {
  public:
    explicit Part(OfflinePlugin& plugin) : owner(&plugin) {}
    PluginBase* getPlugin() override { return static_cast<NamedPlugin*>(owner); }

  protected:
    OfflinePlugin* owner;
};

class ColorPart final : public Part<TextureInterface> {
  public:
    using Part::Part;
    AColor getTexColor(const ShadingContext&) override { return constant(); }
    void getTexColorBounds(AColor& minimum, AColor& maximum) override { minimum = maximum = constant(); }

  private:
    AColor constant() const {
        return constantOf<AColor>(
            *owner, PARAM_TEXTURE, PARAM_ACOLOR, [](KelmoPluginParameter& v) { return v.getAColor(0, 0.0); },
            [](const ParamDesc& d) { return d.defaultAColor; });
    }
};

class FloatPart final : public Part<TextureFloatInterface> {
  public:
    using Part::Part;
    float getTexFloat(const ShadingContext&) override { return constant(); }
    void getTexFloatBounds(float& minimum, float& maximum) override { minimum = maximum = constant(); }

  private:
    float constant() const {
        return constantOf<float>(
            *owner, PARAM_TEXTURE_FLOAT, PARAM_FLOAT, [](KelmoPluginParameter& v) { return v.getFloat(0, 0.0); },
            [](const ParamDesc& d) { return d.defaultFloat; });
    }
};

class VectorPart final : public Part<TextureVectorInterface> {
  public:
    using Part::Part;
    Vector getTexVector(const ShadingContext&) override { return constant(); }
    void getTexVectorBounds(Vector& minimum, Vector& maximum) override { minimum = maximum = constant(); }

  private:
    Vector constant() const {
        return constantOf<Vector>(
            *owner, PARAM_TEXTURE_VECTOR, PARAM_VECTOR, [](KelmoPluginParameter& v) { return v.getVector(0, 0.0); },
            [](const ParamDesc& d) { return d.defaultVector; });
    }
};

class IntPart final : public Part<TextureIntInterface> {
  public:
    using Part::Part;
    int getTexInt(const ShadingContext&) override {
        return constantOf<int>(
            *owner, PARAM_TEXTURE_INT, PARAM_INT, [](KelmoPluginParameter& v) { return v.getInt(0, 0.0); },
            [](const ParamDesc& d) { return d.defaultInt; });
    }
};

class MatrixPart final : public Part<TextureMatrixInterface> {
  public:
    using Part::Part;
    Matrix getTexMatrix(const ShadingContext&) override {
        return constantOf<Matrix>(
            *owner, PARAM_TEXTURE_MATRIX, PARAM_MATRIX, [](KelmoPluginParameter& v) { return v.getMatrix(0, 0.0); },
            [](const ParamDesc& d) { return d.defaultMatrix; });
    }
};

ShadingTransform lanesOf(const Matrix& matrix, float x, float y, float z) {
    ShadingTransform result{};
    for (int i = 0; i < 3; ++i) {
        result.lanes[i][0] = matrix.columns[i].x;
        result.lanes[i][1] = matrix.columns[i].y;
        result.lanes[i][2] = matrix.columns[i].z;
    }
    result.lanes[3][0] = x;
    result.lanes[3][1] = y;
    result.lanes[3][2] = z;
    return result;
}

class TransformPart final : public Part<TextureTransformInterface> {
  public:
    using Part::Part;
    ShadingTransform getTexTransform(const ShadingContext&) override {
        return constantOf<ShadingTransform>(
            *owner, PARAM_TEXTURE_TRANSFORM, PARAM_TRANSFORM,
            [](KelmoPluginParameter& v) {
                const TraceTransform t = v.getTransform(0, 0.0);
                return lanesOf(t.matrix, static_cast<float>(t.offset[0]), static_cast<float>(t.offset[1]),
                               static_cast<float>(t.offset[2]));
            },
            [](const ParamDesc& d) {
                const Transform& t = d.defaultTransform;
                return lanesOf(t.matrix, t.offset.x, t.offset.y, t.offset.z);
            });
    }
};

template <class P>
PluginInterface* makePart(OfflinePlugin& owner, unsigned char* place) {
    static_assert(sizeof(P) == TEXTURE_PART_BYTES, "parts lie one after the other");
    return new (place) P(owner);
}

struct PartRow {
    TextureOffer offer;
    std::uint32_t id;
    PluginInterface* (*make)(OfflinePlugin& owner, unsigned char* place);
};

constexpr PartRow PARTS[] = {
    {OFFERS_TEXTURE, EXT_TEXTURE, makePart<ColorPart>},
    {OFFERS_TEXTURE_FLOAT, EXT_TEXTURE_FLOAT, makePart<FloatPart>},
    {OFFERS_TEXTURE_INT, EXT_TEXTURE_INT, makePart<IntPart>},
    {OFFERS_TEXTURE_VECTOR, EXT_TEXTURE_VECTOR, makePart<VectorPart>},
    {OFFERS_TEXTURE_MATRIX, EXT_TEXTURE_MATRIX, makePart<MatrixPart>},
    {OFFERS_TEXTURE_TRANSFORM, EXT_TEXTURE_TRANSFORM, makePart<TransformPart>},
};

}  // namespace

std::size_t countTextureParts(std::uint32_t offered) {
    std::size_t count = 0;
    for (const PartRow& row : PARTS) count += (offered & row.offer) != 0 ? 1 : 0;
    return count;
}

void makeTextureParts(std::uint32_t offered, OfflinePlugin& owner, unsigned char* place) {
    for (const PartRow& row : PARTS) {
        if ((offered & row.offer) == 0) continue;
        row.make(owner, place);
        place += TEXTURE_PART_BYTES;
    }
}

PluginInterface* findTexturePart(std::uint32_t offered, unsigned char* place, std::uint32_t id) {
    for (const PartRow& row : PARTS) {
        if ((offered & row.offer) == 0) continue;
        if (row.id == id) return std::launder(reinterpret_cast<PluginInterface*>(place));
        place += TEXTURE_PART_BYTES;
    }
    return nullptr;
}

}  // namespace Offline
