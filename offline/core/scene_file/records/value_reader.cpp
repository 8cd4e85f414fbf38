#include "core/scene_file/records/value_reader.h"

#include <limits>

#include "core/base/nearest_name.h"
#include "core/scene_file/records/line_error.h"

namespace Offline {
namespace {

constexpr int MAX_DEPTH = 100;
constexpr char REFERENCE_EXPECTED[] = "a plugin's name, [name, output] or null";

template <class Kind>
struct Elements {
    Array<typename Kind::Element> list;

    ~Elements() {
        for (auto& element : list) Kind::release(element);
    }
};

// The type code that a tag names; -1: none that can be tagged.
int codeOf(const std::string& digits) {
    if (digits.size() == 1) return digits[0] - '0';
    if (digits == "10") return KUtils::PARAM_PLUGIN;
    return digits == "12" ? KUtils::PARAM_LIST : -1;
}

// "nan", "inf" and "-inf" stand for the numbers that JSON has no form for.
template <class Float>
bool isSpecialNumber(const std::string& text, Float& value) {
    if (text == "nan") {
        value = std::numeric_limits<Float>::quiet_NaN();
    } else if (text == "inf") {
        value = std::numeric_limits<Float>::infinity();
    } else if (text == "-inf") {
        value = -std::numeric_limits<Float>::infinity();
    } else {
        return false;
    }
    return true;
}

bool readAnyFloat(JsonText& text, float& value, const char* expected) { return text.readFloat(value, expected); }
bool readAnyFloat(JsonText& text, double& value, const char* expected) { return text.readDouble(value, expected); }

template <class Float>
bool readFloatOrSpecial(JsonText& text, Float& value, const char* expected) {
    if (text.peek() != '"') return readAnyFloat(text, value, expected);
    const char* where = text.mark();
    std::string word;
    if (!text.readText(word, expected)) return false;
    if (isSpecialNumber(word, value)) return true;
    text.moveTo(where);
    return text.fail(expected);
}

}  // namespace

bool ValueReader::noMemory() { return text.failAt(text.mark(), NO_MEMORY); }

Value* ValueReader::made(Value* value) {
    if (value == nullptr) noMemory();
    return value;
}

Value* ValueReader::read(const KUtils::ParamDesc& desc, ListShape shape, ValueName name, bool rigid) {
    valueName = name;
    makeRigid = rigid;
    depth = 0;
    references = 0;
    openReferences.clear();
    return text.peek() == '{' ? readTagged() : readDeclared(desc, shape);
}

Value* ValueReader::readDeclared(const KUtils::ParamDesc& desc, ListShape shape) {
    if (KUtils::isOutputType(desc.type)) {
        text.fail("no value, the parameter is an output");
        return nullptr;
    }
    if (desc.type == KUtils::PARAM_LIST) {
        switch (shape) {
            case ListShape::Ints:
                return readListOfLists<IntKind>();
            case ListShape::Floats:
                return readListOfLists<FloatKind>();
            case ListShape::Vectors:
                return readListOfLists<VectorKind>();
            case ListShape::Plugins:
                return readListOfLists<ReferenceKind>();
            case ListShape::MapChannels:
                return readMapChannels();
            case ListShape::Any:
                return readMixed();
        }
    }
    const bool texture = KUtils::isTextureType(desc.type);
    if (desc.listCount == -1) return texture ? readTexture(desc.type) : readSingle(desc.type);
    if (!texture) return readFlat(desc.type, desc.type);
    return readFlat(KUtils::PARAM_PLUGIN, makeRigid ? desc.type : KUtils::PARAM_PLUGIN);
}

// In a texture parameter a text, a pair that begins with a text, and null are references.
bool ValueReader::nextIsReference() {
    if (text.peek() == '"' || text.peek() == 'n') return true;
    const char* where = text.mark();
    const bool pair = text.take('[') && text.peek() == '"';
    text.moveTo(where);
    return pair;
}

Value* ValueReader::readTexture(KUtils::ParamType code) {
    if (nextIsReference()) {
        PluginRef reference;
        if (!readElement(ReferenceKind{}, reference)) return nullptr;
        Value* value = makeValue<SingleValue<ReferenceKind>>(makeRigid, valueName, reference,
                                                             makeRigid ? code : KUtils::PARAM_PLUGIN);
        if (value == nullptr) ReferenceKind::release(reference);
        return made(value);
    }
    if (code != KUtils::PARAM_TEXTURE) return readSingle(plainCode(code));

    constexpr char EXPECTED[] = "a plugin's name, [name, output], null, or a colour of 3 or 4 numbers";
    float parts[4];
    int count = 0;
    const char* where = text.mark();
    if (!text.readList(EXPECTED,
                       [&] { return count < 4 ? readElement(FloatKind{}, parts[count++]) : text.fail("\"]\""); }))
        return nullptr;
    if (count < 3) {
        text.moveTo(where);
        text.fail(EXPECTED);
        return nullptr;
    }
    const KUtils::Color color{parts[0], parts[1], parts[2]};
    if (count == 3) return made(makeValue<SingleValue<ColorKind>>(makeRigid, valueName, color));
    return made(makeValue<SingleValue<AColorKind>>(makeRigid, valueName, KUtils::AColor{color, parts[3]}));
}

Value* ValueReader::readSingle(int code) {
    Value* value = nullptr;
    const bool known = visitKind(code, [&](auto kind) {
        using Kind = decltype(kind);
        typename Kind::Element element;
        if (!readElement(kind, element)) return;
        value = makeValue<SingleValue<Kind>>(makeRigid, valueName, element);
        if (value != nullptr) return;
        Kind::release(element);
        noMemory();
    });
    if (!known) text.fail("a parameter with a type that can be read");
    return value;
}

template <class Kind>
bool ValueReader::readElements(Array<typename Kind::Element>& elements) {
    const bool read = text.readList("a list", [&] {
        typename Kind::Element element;
        if (!readElement(Kind{}, element)) return false;
        if (elements.append(element)) return true;
        Kind::release(element);
        return noMemory();
    });
    if (read) elements.fit();
    return read;
}

Value* ValueReader::readFlat(int code, KUtils::ParamType answered) {
    Value* value = nullptr;
    const bool known = visitKind(code, [&](auto kind) {
        using Kind = decltype(kind);
        Elements<Kind> elements;
        if (readElements<Kind>(elements.list))
            value = made(makeValue<FlatList<Kind>>(
                makeRigid, valueName, static_cast<Array<typename Kind::Element>&&>(elements.list), answered));
    });
    if (!known) text.fail("a parameter with a type that can be read");
    return value;
}

template <class Kind>
Value* ValueReader::readListOfLists() {
    SubLists<Kind> lists;
    const bool read = text.readList("a list of lists", [&] {
        auto* list = lists.append();
        if (list == nullptr) return noMemory();
        list->absent = text.takeWord("null");
        return list->absent || readElements<Kind>(list->elements);
    });
    if (!read) return nullptr;
    return made(makeValue<ListOfLists<Kind>>(makeRigid, valueName, static_cast<SubLists<Kind>&&>(lists)));
}

bool ValueReader::readChannel(MapChannel& channel) {
    bool number = false, vertices = false, faces = false;
    const char* where = text.mark();
    const auto once = [&](bool& seen) {
        if (seen) return text.failAt(text.last(), "the key stands here twice");
        return seen = true;
    };
    const bool read = text.readObject("a map channel", [&](const std::string& key) {
        if (key == "channel") return once(number) && readElement(IntKind{}, channel.number);
        if (key == "vertices") return once(vertices) && readElements<VectorKind>(channel.vertices);
        if (key == "faces") return once(faces) && readElements<IntKind>(channel.faces);
        NearestName nearest(key.c_str());
        for (const char* known : {"channel", "vertices", "faces"}) nearest.offer(known);
        return text.failAt(text.last(), "expected \"channel\", \"vertices\" or \"faces\", found " + quoted(key) +
                                            suggestion(nearest.best()));
    });
    if (!read || (number && vertices && faces)) return read;
    return text.failAt(where, "a map channel has \"channel\", \"vertices\" and \"faces\"");
}

Value* ValueReader::readMapChannels() {
    if (makeRigid) {
        text.failAt(text.mark(), "map channels cannot be rigid");
        return nullptr;
    }
    MapChannelList channels;
    const bool read = text.readList("a list of map channels", [&] {
        MapChannel* channel = channels.append();
        return channel != nullptr ? readChannel(*channel) : noMemory();
    });
    if (!read) return nullptr;
    return made(makeValue<MapChannels>(false, valueName, static_cast<MapChannelList&&>(channels)));
}

Value* ValueReader::readMixed() {
    if (++depth > MAX_DEPTH) {
        text.failAt(text.mark(), "lists stand in each other more than 100 deep");
        return nullptr;
    }
    const ValueName name = valueName;
    const bool rigid = makeRigid;
    valueName = {nullptr, false};
    makeRigid = true;
    ValueList values;
    const bool read = text.readList("a list", [&] {
        Value* value = nullptr;
        if (!text.takeWord("null")) {
            if (text.peek() != '{') return text.fail("a value with its type, as {\"0\":1}, or null");
            value = readTagged();
            if (value == nullptr) return false;
        }
        return values.append(value) || noMemory();
    });
    valueName = name;
    makeRigid = rigid;
    --depth;
    return read ? made(makeValue<MixedList>(makeRigid, valueName, static_cast<ValueList&&>(values))) : nullptr;
}

Value* ValueReader::readTagged() {
    Value* value = nullptr;
    const char* where = text.mark();
    const bool read = text.readObject("a value with its type", [&](const std::string& key) {
        if (value != nullptr) return text.failAt(text.last(), "a value has one type only");
        const std::size_t digits = key.find_first_not_of("0123456789");
        const std::string number = key.substr(0, digits);
        const bool flat = key == number + "[]";
        const int code = codeOf(number);
        if ((!flat && key != number) || code < 0 || (flat && code == KUtils::PARAM_LIST)) {
            return text.failAt(text.last(),
                               "expected a type code, as \"0\" or \"0[]\" for a list, found " + quoted(key));
        }
        if (flat) {
            value = readFlat(code, static_cast<KUtils::ParamType>(code));
        } else {
            value = code == KUtils::PARAM_LIST ? readMixed() : readSingle(code);
        }
        return value != nullptr;
    });
    if (read && value == nullptr) text.failAt(where, "expected a value with its type, as {\"0\":1}, found {}");
    if (read) return value;
    delete value;
    return nullptr;
}

// Elements.

bool ValueReader::readNumbers(float* numbers, int count, const char* expected) {
    if (!text.take('[')) return text.fail(expected);
    for (int i = 0; i < count; ++i) {
        if (i > 0 && !text.take(',')) return text.fail(expected);
        if (!readFloatOrSpecial(text, numbers[i], "a number")) return false;
    }
    return text.need(']');
}

bool ValueReader::readOffset(double* numbers) {
    if (!text.take('[')) return text.fail("an offset of 3 numbers");
    for (int i = 0; i < 3; ++i) {
        if (i > 0 && !text.need(',')) return false;
        if (!readFloatOrSpecial(text, numbers[i], "a number")) return false;
    }
    return text.need(']');
}

bool ValueReader::readElement(IntKind, std::int32_t& value) { return text.readInt(value, "an integer"); }

bool ValueReader::readElement(BoolKind, std::int32_t& value) {
    value = text.takeWord("true") ? 1 : 0;
    return value != 0 || text.takeWord("false") || text.fail("true or false");
}

bool ValueReader::readElement(FloatKind, float& value) { return readFloatOrSpecial(text, value, "a number"); }
bool ValueReader::readElement(DoubleKind, double& value) { return readFloatOrSpecial(text, value, "a number"); }

bool ValueReader::readElement(VectorKind, KUtils::Vector& value) {
    float parts[3];
    if (!readNumbers(parts, 3, "a vector of 3 numbers")) return false;
    value = {parts[0], parts[1], parts[2]};
    return true;
}

bool ValueReader::readElement(ColorKind, KUtils::Color& value) {
    float parts[3];
    if (!readNumbers(parts, 3, "a colour of 3 numbers")) return false;
    value = {parts[0], parts[1], parts[2]};
    return true;
}

bool ValueReader::readElement(AColorKind, KUtils::AColor& value) {
    float parts[4];
    if (!readNumbers(parts, 4, "a colour of 4 numbers")) return false;
    value = {{parts[0], parts[1], parts[2]}, parts[3]};
    return true;
}

bool ValueReader::readElement(MatrixKind, KUtils::Matrix& value) {
    if (!text.take('[')) return text.fail("a matrix of 3 vectors");
    for (int i = 0; i < 3; ++i) {
        if (i > 0 && !text.need(',')) return false;
        if (!readElement(VectorKind{}, value.columns[i])) return false;
    }
    return text.need(']');
}

bool ValueReader::readElement(TransformKind, KUtils::TraceTransform& value) {
    if (!text.take('[')) return text.fail("a transform of a matrix and an offset");
    return readElement(MatrixKind{}, value.matrix) && text.need(',') && readOffset(value.offset) && text.need(']');
}

bool ValueReader::readElement(StringKind, char*& value) {
    value = nullptr;
    if (text.takeWord("null")) return true;
    if (!text.readText(scratch, "a text or null")) return false;
    value = copyText(scratch.c_str());
    return value != nullptr || noMemory();
}

bool ValueReader::readElement(ReferenceKind, PluginRef& value) {
    value = {nullptr, nullptr};
    const std::int32_t ordinal = references++;
    if (text.takeWord("null")) return true;
    const bool pair = text.take('[');
    if (!text.readText(scratch, REFERENCE_EXPECTED)) return false;
    value.plugin = contents.find(scratch.c_str());
    if (value.plugin == nullptr) openReferences.push_back({ordinal, text.columnOf(text.last()), scratch});
    if (!pair) return true;
    if (!text.need(',') || !text.readText(scratch, "the name of an output") || !text.need(']')) return false;
    value.output = copyText(scratch.c_str());
    return value.output != nullptr || noMemory();
}

}  // namespace Offline
