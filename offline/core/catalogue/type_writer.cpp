#include "core/catalogue/type_writer.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cmath>

#include "core/catalogue/type_names.h"
#include "core/scene_file/numbers/numbers.h"

namespace Offline {
namespace {

using namespace KUtils;

class Output {
  public:
    Output() : writer(buffer) {}

    void key(const char* name) { writer.Key(name); }
    void text(const std::string& value) { writer.String(value.data(), static_cast<unsigned>(value.size())); }
    void boolean(bool value) { writer.Bool(value); }
    void integer(int value) { writer.Int(value); }
    void null() { writer.Null(); }
    void beginList() { writer.StartArray(); }
    void endList() { writer.EndArray(); }
    void beginObject() { writer.StartObject(); }
    void endObject() { writer.EndObject(); }

    void single(float value) { number(value, writeFloat); }
    void full(double value) { number(value, writeDouble); }

    std::string result() const { return std::string(buffer.GetString(), buffer.GetSize()); }

  private:
    template <class T>
    void number(T value, std::size_t (*write)(char* out, T value)) {
        if (!std::isfinite(value)) {
            writer.String(std::isnan(value) ? "nan" : value > 0 ? "inf" : "-inf");
            return;
        }
        char digits[NUMBER_TEXT_BYTES];
        writer.RawValue(digits, write(digits, value), rapidjson::kNumberType);
    }

    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer;
};

void writeFloats(Output& out, const float* floats, int count) {
    out.beginList();
    for (int i = 0; i < count; ++i) out.single(floats[i]);
    out.endList();
}

void writeVector(Output& out, const Vector& v) {
    const float floats[] = {v.x, v.y, v.z};
    writeFloats(out, floats, 3);
}

void writeMatrix(Output& out, const Matrix& matrix) {
    out.beginList();
    for (const Vector& column : matrix.columns) writeVector(out, column);
    out.endList();
}

void writeDefault(Output& out, const ParamDesc& desc) {
    switch (desc.type) {
        case PARAM_INT:
        case PARAM_TEXTURE_INT:
            return out.integer(desc.defaultInt);
        case PARAM_BOOL:
            return out.boolean(desc.defaultInt != 0);
        case PARAM_FLOAT:
        case PARAM_TEXTURE_FLOAT:
            return out.single(desc.defaultFloat);
        case PARAM_DOUBLE:
            return out.full(desc.defaultDouble);
        case PARAM_VECTOR:
        case PARAM_TEXTURE_VECTOR:
            return writeVector(out, desc.defaultVector);
        case PARAM_COLOR:
            return writeVector(out, Vector{desc.defaultColor.r, desc.defaultColor.g, desc.defaultColor.b});
        case PARAM_ACOLOR:
        case PARAM_TEXTURE: {
            const AColor& c = desc.defaultAColor;
            const float floats[] = {c.color.r, c.color.g, c.color.b, c.alpha};
            return writeFloats(out, floats, 4);
        }
        case PARAM_MATRIX:
        case PARAM_TEXTURE_MATRIX:
            return writeMatrix(out, desc.defaultMatrix);
        case PARAM_TRANSFORM:
        case PARAM_TEXTURE_TRANSFORM:
            out.beginList();
            writeMatrix(out, desc.defaultTransform.matrix);
            writeVector(out, desc.defaultTransform.offset);
            return out.endList();
        default:
            if (desc.defaultString == nullptr) return out.null();
            return out.text(desc.defaultString);
    }
}

const char* nameOfType(ParamType code) {
    for (const TypeCodeName& row : TYPE_CODE_NAMES) {
        if (row.code == code) return row.name;
    }
    return "int";
}

void writeParam(Output& out, const PluginType& type, std::size_t index) {
    const ParamDesc& desc = type.param(index);
    out.beginObject();
    out.key("name");
    out.text(desc.name);
    out.key("type");
    out.text(nameOfType(desc.type));
    if (desc.listCount != -1 && desc.type != PARAM_LIST) {
        out.key("list");
        out.boolean(true);
    }
    for (const ShapeName& row : SHAPE_NAMES) {
        if (row.shape != type.shape(index) || row.shape == ListShape::Any) continue;
        out.key("shape");
        out.text(row.name);
    }
    if (desc.hasDefault != 0) {
        out.key("default");
        writeDefault(out, desc);
    }
    if (!type.paramDoc(index).empty()) {
        out.key("doc");
        out.text(type.paramDoc(index));
    }
    out.endObject();
}

void writeInterfaces(Output& out, const PluginType& type) {
    out.key("interfaces");
    out.beginList();
    for (const TextureOfferName& row : TEXTURE_OFFER_NAMES) {
        if ((type.textures & row.offer) != 0) out.text(row.name);
    }
    out.endList();
}

}  // namespace

std::string typeAsJson(const PluginType& type) {
    Output out;
    out.beginObject();
    out.key("name");
    out.text(type.typeName());
    out.key("family");
    out.text(type.family);
    out.key("kind");
    out.text(kindName(type.kind));
    out.key("doc");
    out.text(type.doc);
    out.key("unique");
    out.boolean(type.unique);
    writeInterfaces(out, type);
    out.key("descriptor");
    out.boolean(type.offersDescriptor);
    out.key("params");
    out.beginList();
    for (std::size_t i = 0; i < type.paramCount(); ++i) writeParam(out, type, i);
    out.endList();
    out.endObject();
    return out.result();
}

}  // namespace Offline
