// One plugin type of the catalogue: the descriptor that plugins of the type share, and what is kept beside it.
//
// The table of declarations lies exactly as the contract says; names and default texts that it points to belong to
// the type. A type never changes once it stands in a catalogue, and lives as long as the catalogue, also when a
// later one of the same name has replaced it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "kelmo/plugin/param_desc.h"

namespace Offline {

enum class PluginKind { Geometry, Node, Material, Texture, Light, Camera, Settings, Other };

// How the elements of a declared `list` (code 12) lie. Any for every parameter that is none.
enum class ListShape { Any, Ints, Floats, Vectors, Plugins, MapChannels };

// The texture interfaces that a plugin can offer, as bits.
enum TextureOffer : std::uint32_t {
    OFFERS_TEXTURE = 1,
    OFFERS_TEXTURE_FLOAT = 2,
    OFFERS_TEXTURE_INT = 4,
    OFFERS_TEXTURE_VECTOR = 8,
    OFFERS_TEXTURE_MATRIX = 16,
    OFFERS_TEXTURE_TRANSFORM = 32,
};

const char* kindName(PluginKind kind);

// A declaration as it is handed to PluginType::add. `desc.name` and `desc.defaultString` are set by the type from
// the texts here.
struct ParamDeclaration {
    std::string name;
    std::string doc;
    KUtils::ParamDesc desc{};
    ListShape shape = ListShape::Any;
    std::string defaultText;      // of a string parameter
    bool hasDefaultText = false;  // false: the default text is null
};

class PluginType final : public KUtils::PluginDescriptor {
  public:
    explicit PluginType(std::string typeName) : name(std::move(typeName)) {}
    PluginType(const PluginType&) = delete;
    PluginType& operator=(const PluginType&) = delete;

    const char* getTypeName() override { return name.c_str(); }

    // Gives the type its parameters, once.
    void declare(std::vector<ParamDeclaration>&& parameters);

    // The first declaration of this name, or null.
    const KUtils::ParamDesc* findParam(const char* paramName) const;
    // As findParam, as an index into the table; -1: none.
    int paramIndex(const char* paramName) const;
    std::size_t paramCount() const { return records.size(); }
    const KUtils::ParamDesc& param(std::size_t index) const { return records[index]; }
    ListShape shape(std::size_t index) const { return declared[index].shape; }
    const std::string& paramDoc(std::size_t index) const { return declared[index].doc; }
    // The parameter's name that is nearest to `paramName`, or null when none is near.
    const char* nearestParam(const char* paramName) const;

    const std::string& typeName() const { return name; }

    std::string family;
    std::string doc;
    PluginKind kind = PluginKind::Other;
    bool unique = false;           // only one plugin of the type may exist; enforced by whoever creates
    bool offersDescriptor = true;  // plugins answer PLUGIN_DESC_INTERFACE_ID
    std::uint32_t textures = 0;    // TextureOffer bits

  private:
    std::string name;
    std::vector<ParamDeclaration> declared;
    std::vector<KUtils::ParamDesc> records;
    std::unordered_map<std::string_view, int> indexByName;
    KUtils::ParamTable table{};
};

}  // namespace Offline
