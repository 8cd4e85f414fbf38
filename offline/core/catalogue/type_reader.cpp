#include "core/catalogue/type_reader.h"

#include <rapidjson/encodedstream.h>
#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>

#include <cstring>

#include "core/base/nearest_name.h"
#include "core/catalogue/json_path.h"
#include "core/catalogue/type_names.h"
#include "core/catalogue/type_values.h"

namespace Offline {
namespace {

std::string inQuotes(const char* text) { return '"' + std::string(text) + '"'; }

// `problem`, and a name that may have been meant.
template <class Row, std::size_t N>
std::string withSuggestion(std::string problem, const char* wanted, const Row (&rows)[N]) {
    NearestName nearest(wanted);
    for (const Row& row : rows) nearest.offer(row.name);
    if (nearest.best() != nullptr) problem += "; did you mean " + inQuotes(nearest.best()) + "?";
    return problem;
}

struct KeyName {
    const char* name;
};

// Reads one object: each key is looked up in a table of names, strange and repeated ones are errors.
template <std::size_t N>
bool checkKeys(const Json& object, const KeyName (&known)[N], PathError& error) {
    if (!object.IsObject()) return error.expected("an object", object);
    for (auto member = object.MemberBegin(); member != object.MemberEnd(); ++member) {
        const char* key = member->name.GetString();
        if (rowNamed(known, std::string_view(key, member->name.GetStringLength())) == nullptr)
            return error.fail(withSuggestion("unknown key " + inQuotes(key), key, known));
        for (auto before = object.MemberBegin(); before != member; ++before) {
            if (before->name == member->name) return error.fail("the key " + inQuotes(key) + " stands twice");
        }
    }
    return true;
}

// Adds the object's name to the path, since places in a long list are hard to count.
void nameInPath(const Json& object, PathError& error) {
    if (!object.IsObject()) return;
    const auto name = object.FindMember("name");
    if (name == object.MemberEnd() || !name->value.IsString() || *name->value.GetString() == '\0') return;
    error.path += ' ' + inQuotes(name->value.GetString());
}

const Json* valueOf(const Json& object, const char* key) {
    const auto member = object.FindMember(key);
    return member != object.MemberEnd() ? &member->value : nullptr;
}

// A text without a zero byte, because names end at the first one.
bool readText(const Json& object, const char* key, bool required, std::string& text, PathError& error) {
    const Json* value = valueOf(object, key);
    if (value == nullptr) return !required || error.fail("the key " + inQuotes(key) + " is missing");
    const PathStep step(error, std::string(key));
    if (!value->IsString()) return error.expected("a text", *value);
    text.assign(value->GetString(), value->GetStringLength());
    if (text.find('\0') != std::string::npos) return error.fail("a text cannot hold a zero byte");
    if (required && text.empty()) return error.fail("the text is empty");
    return true;
}

bool readBool(const Json& object, const char* key, bool& flag, PathError& error) {
    const Json* value = valueOf(object, key);
    if (value == nullptr) return true;
    const PathStep step(error, std::string(key));
    if (!value->IsBool()) return error.expected("true or false", *value);
    flag = value->GetBool();
    return true;
}

constexpr KeyName PARAM_KEYS[] = {{"name"}, {"type"}, {"list"}, {"shape"}, {"default"}, {"doc"}};

bool readShape(const Json& object, ParamDeclaration& declaration, PathError& error) {
    std::string shape;
    if (!readText(object, "shape", false, shape, error)) return false;
    if (valueOf(object, "shape") == nullptr) return true;
    const PathStep step(error, std::string("shape"));
    if (declaration.desc.type != KUtils::PARAM_LIST) return error.fail("only a parameter of type \"list\" has a shape");
    const ShapeName* row = rowNamed(SHAPE_NAMES, shape);
    if (row == nullptr)
        return error.fail(withSuggestion("unknown shape " + inQuotes(shape.c_str()), shape.c_str(), SHAPE_NAMES));
    declaration.shape = row->shape;
    return true;
}

bool readParam(const Json& object, ParamDeclaration& declaration, PathError& error) {
    nameInPath(object, error);
    if (!checkKeys(object, PARAM_KEYS, error)) return false;
    std::string type;
    bool list = false;
    if (!readText(object, "name", true, declaration.name, error) || !readText(object, "type", true, type, error) ||
        !readText(object, "doc", false, declaration.doc, error) || !readBool(object, "list", list, error))
        return false;
    const TypeCodeName* row = rowNamed(TYPE_CODE_NAMES, type);
    if (row == nullptr) {
        const PathStep step(error, std::string("type"));
        return error.fail(withSuggestion("unknown type " + inQuotes(type.c_str()), type.c_str(), TYPE_CODE_NAMES));
    }
    declaration.desc.type = row->code;
    declaration.desc.listCount = list || row->code == KUtils::PARAM_LIST ? 0 : -1;
    if (list && KUtils::isOutputType(row->code)) return error.fail("an output is no list");
    if (!readShape(object, declaration, error)) return false;
    const Json* value = valueOf(object, "default");
    if (value == nullptr) return true;
    const PathStep step(error, std::string("default"));
    return readDefault(*value, declaration, error);
}

constexpr KeyName TYPE_KEYS[] = {{"name"}, {"kind"}, {"doc"}, {"unique"}, {"interfaces"}, {"descriptor"}, {"params"}};

bool readInterfaces(const Json& object, PluginType& type, PathError& error) {
    const Json* list = valueOf(object, "interfaces");
    if (list == nullptr) return true;
    const PathStep step(error, std::string("interfaces"));
    if (!list->IsArray()) return error.expected("a list", *list);
    for (unsigned i = 0; i < list->Size(); ++i) {
        const PathStep index(error, i);
        const Json& item = (*list)[i];
        if (!item.IsString()) return error.expected("a text", item);
        const TextureOfferName* row = rowNamed(TEXTURE_OFFER_NAMES, item.GetString());
        if (row == nullptr) {
            return error.fail(withSuggestion("unknown interface " + inQuotes(item.GetString()), item.GetString(),
                                             TEXTURE_OFFER_NAMES));
        }
        type.textures |= row->offer;
    }
    return true;
}

bool readParams(const Json& object, PluginType& type, PathError& error) {
    std::vector<ParamDeclaration> declarations;
    const Json* list = valueOf(object, "params");
    if (list != nullptr) {
        const PathStep step(error, std::string("params"));
        if (!list->IsArray()) return error.expected("a list", *list);
        declarations.resize(list->Size());
        for (unsigned i = 0; i < list->Size(); ++i) {
            const PathStep index(error, i);
            if (!readParam((*list)[i], declarations[i], error)) return false;
        }
    }
    type.declare(std::move(declarations));
    return true;
}

std::unique_ptr<PluginType> readType(const Json& object, const std::string& family, PathError& error) {
    std::string name;
    std::string kind;
    nameInPath(object, error);
    if (!checkKeys(object, TYPE_KEYS, error) || !readText(object, "name", true, name, error) ||
        !readText(object, "kind", false, kind, error))
        return nullptr;
    auto type = std::make_unique<PluginType>(name);
    type->family = family;
    if (valueOf(object, "kind") != nullptr) {
        const PathStep step(error, std::string("kind"));
        const KindName* row = rowNamed(KIND_NAMES, kind);
        if (row == nullptr) {
            error.fail(withSuggestion("unknown kind " + inQuotes(kind.c_str()), kind.c_str(), KIND_NAMES));
            return nullptr;
        }
        type->kind = row->kind;
    }
    const bool good = readText(object, "doc", false, type->doc, error) &&
                      readBool(object, "unique", type->unique, error) &&
                      readBool(object, "descriptor", type->offersDescriptor, error) &&
                      readInterfaces(object, *type, error) && readParams(object, *type, error);
    return good ? std::move(type) : nullptr;
}

constexpr KeyName FILE_KEYS[] = {{"family"}, {"types"}};

bool readFile(const Json& root, std::vector<std::unique_ptr<PluginType>>& types, PathError& error) {
    std::string family;
    if (!checkKeys(root, FILE_KEYS, error) || !readText(root, "family", false, family, error)) return false;
    const Json* list = valueOf(root, "types");
    if (list == nullptr) return error.fail("the key \"types\" is missing");
    const PathStep step(error, std::string("types"));
    if (!list->IsArray()) return error.expected("a list", *list);
    for (unsigned i = 0; i < list->Size(); ++i) {
        const PathStep index(error, i);
        std::unique_ptr<PluginType> type = readType((*list)[i], family, error);
        if (type == nullptr) return false;
        for (const auto& before : types) {
            if (before->typeName() == type->typeName())
                return error.fail("the type " + inQuotes(type->getTypeName()) + " stands twice");
        }
        types.push_back(std::move(type));
    }
    return true;
}

// Keeps the sign of "-0", which comes as the int 0; a zero without a sign comes unsigned.
struct SignedZeros : rapidjson::Document {
    bool Int(int number) { return number == 0 ? Double(-0.0) : GenericDocument::Int(number); }
};

void parse(const char* text, std::size_t length, SignedZeros& document, rapidjson::ParseResult& result) {
    constexpr unsigned FLAGS =
        rapidjson::kParseValidateEncodingFlag | rapidjson::kParseFullPrecisionFlag | rapidjson::kParseIterativeFlag;
    rapidjson::MemoryStream bytes(text, length);
    rapidjson::EncodedInputStream<rapidjson::UTF8<>, rapidjson::MemoryStream> input(bytes);
    rapidjson::Reader reader;
    auto events = [&](rapidjson::Document&) {
        result = reader.Parse<FLAGS>(input, document);
        return !result.IsError();
    };
    document.Populate(events);
}

// "line 3, column 7: ..." of a text that is no JSON.
std::string syntaxError(const char* text, std::size_t offset, const char* reason) {
    std::size_t line = 1;
    std::size_t column = 1;
    for (std::size_t i = 0; i < offset; ++i) {
        ++column;
        if (text[i] != '\n') continue;
        ++line;
        column = 1;
    }
    return "line " + std::to_string(line) + ", column " + std::to_string(column) + ": " + reason;
}

}  // namespace

std::vector<std::unique_ptr<PluginType>> readTypes(const char* text, std::size_t length, std::string& error) {
    SignedZeros document;
    rapidjson::ParseResult result;
    parse(text, length, document, result);
    std::vector<std::unique_ptr<PluginType>> types;
    if (result.IsError()) {
        error = syntaxError(text, result.Offset(), rapidjson::GetParseError_En(result.Code()));
        return types;
    }
    PathError found;
    if (!readFile(document, types, found)) {
        types.clear();
        error = found.message;
    }
    return types;
}

}  // namespace Offline
