// Reads one value of a scene line into a value object, by the declaration of its parameter.
//
// Ownership: the value belongs to the caller. Errors: null, and the reason noted in the JsonText. References are
// set at once when their plugin stands in the scene; the others are listed and carried without a plugin so far.
#pragma once

#include <string>
#include <vector>

#include "core/catalogue/plugin_type.h"
#include "core/scene/scene_contents.h"
#include "core/scene_file/json/json_text.h"
#include "core/values/map_channels.h"
#include "core/values/mixed_list.h"
#include "core/values/typed_values.h"

namespace Offline {

// A reference whose plugin does not stand in the scene yet.
struct OpenReference {
    std::int32_t ordinal;  // among the references of its value, in the order of Value::eachReference
    std::size_t column;
    std::string name;
};

class ValueReader {
  public:
    ValueReader(JsonText& line, const SceneContents& scene) : text(line), contents(scene) {}

    // A rigid reference in a texture parameter answers the texture's type code.
    Value* read(const KUtils::ParamDesc& desc, ListShape shape, ValueName name, bool rigid);

    // Those of the value that was read last.
    std::vector<OpenReference> openReferences;

  private:
    Value* readDeclared(const KUtils::ParamDesc& desc, ListShape shape);
    Value* readTexture(KUtils::ParamType code);
    Value* readTagged();
    Value* readMixed();
    Value* readMapChannels();
    Value* readSingle(int code);
    Value* readFlat(int code, KUtils::ParamType answered);
    template <class Kind>
    Value* readListOfLists();

    template <class Kind>
    bool readElements(Array<typename Kind::Element>& elements);
    bool readChannel(MapChannel& channel);
    bool readNumbers(float* numbers, int count, const char* expected);
    bool readOffset(double* numbers);
    bool nextIsReference();

    bool readElement(IntKind, std::int32_t& value);
    bool readElement(BoolKind, std::int32_t& value);
    bool readElement(FloatKind, float& value);
    bool readElement(DoubleKind, double& value);
    bool readElement(VectorKind, KUtils::Vector& value);
    bool readElement(ColorKind, KUtils::Color& value);
    bool readElement(AColorKind, KUtils::AColor& value);
    bool readElement(MatrixKind, KUtils::Matrix& value);
    bool readElement(TransformKind, KUtils::TraceTransform& value);
    bool readElement(StringKind, char*& value);
    bool readElement(ReferenceKind, PluginRef& value);

    bool noMemory();
    Value* made(Value* value);

    JsonText& text;
    const SceneContents& contents;
    ValueName valueName{nullptr, false};
    bool makeRigid = false;
    int depth = 0;  // of lists in lists of any shape
    std::int32_t references = 0;
    std::string scratch;
};

}  // namespace Offline
