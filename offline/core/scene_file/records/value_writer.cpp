#include "core/scene_file/records/value_writer.h"

#include "core/scene_file/json/json_writer.h"
#include "core/values/element_kinds.h"

namespace Offline {
namespace {

using KUtils::KelmoPluginParameter;
using KUtils::ParamType;

constexpr double TIME = 0.0;

// Goes into one element of a list and comes back.
class Opened {
  public:
    Opened(KelmoPluginParameter& list, int index) : value(list), handle(list.openListImpl(index)) {}
    ~Opened() { value.closeList(handle); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

  private:
    KelmoPluginParameter& value;
    KUtils::ListHandle handle;
};

// The type code of the elements that a list of this shape has; -1: it is no list of lists.
int elementCode(ListShape shape) {
    switch (shape) {
        case ListShape::Ints:
            return KUtils::PARAM_INT;
        case ListShape::Floats:
            return KUtils::PARAM_FLOAT;
        case ListShape::Vectors:
            return KUtils::PARAM_VECTOR;
        case ListShape::Plugins:
            return KUtils::PARAM_PLUGIN;
        default:
            return -1;
    }
}

// Whether the value can be written as lists of elements of this code, so that it reads back as the same.
bool isListOfLists(KelmoPluginParameter& value, int code) {
    const int count = value.getCount(TIME);
    for (int i = 0; i < count; ++i) {
        const bool list = value.getType(i, TIME) == KUtils::PARAM_LIST;
        const Opened opened(value, i);
        const int length = value.getCount(TIME);
        if (!list && length == -1) return false;
        for (int k = 0; k < length; ++k)
            if (value.getType(k, TIME) != code) return false;
    }
    return true;
}

bool isMapChannels(KelmoPluginParameter& value) {
    const int count = value.getCount(TIME);
    for (int i = 0; i < count; ++i) {
        const Opened opened(value, i);
        if (value.getCount(TIME) != 3 || value.getType(0, TIME) != KUtils::PARAM_INT ||
            value.getType(1, TIME) != KUtils::PARAM_VECTOR || value.getType(2, TIME) != KUtils::PARAM_INT)
            return false;
    }
    return true;
}

bool isReference(int code) { return code == KUtils::PARAM_PLUGIN || KUtils::isTextureType(code); }

// Whether a single value that answers `code` is written without a tag in a parameter of type `declared`.
bool isPlainFor(int declared, int code) {
    if (code == declared) return true;
    if (!KUtils::isTextureType(declared)) return false;
    return code == KUtils::PARAM_PLUGIN || code == plainCode(declared) ||
           (declared == KUtils::PARAM_TEXTURE && code == KUtils::PARAM_ACOLOR);
}

}  // namespace

void ValueWriter::write(KelmoPluginParameter& value, const KUtils::ParamDesc& desc, ListShape shape) {
    if (value.getCount(TIME) != -1) {
        writeList(value, desc, shape);
    } else {
        writeSingle(value, desc);
    }
}

void ValueWriter::writeList(KelmoPluginParameter& value, const KUtils::ParamDesc& desc, ListShape shape) {
    const int code = value.getType(-1, TIME);
    if (code == KUtils::PARAM_LIST) {
        if (desc.type == KUtils::PARAM_LIST && writeShape(value, shape)) return;
        tagged(value, code, 0);
    } else if (desc.listCount != -1 && (desc.type == code || (KUtils::isTextureType(desc.type) && isReference(code)))) {
        flat(value, code);
    } else {
        taggedFlat(value, code);
    }
}

bool ValueWriter::writeShape(KelmoPluginParameter& value, ListShape shape) {
    const int code = elementCode(shape);
    if (shape == ListShape::Any) {
        mixed(value);
    } else if (shape == ListShape::MapChannels && isMapChannels(value)) {
        mapChannels(value);
    } else if (code != -1 && isListOfLists(value, code)) {
        listOfLists(value, code);
    } else {
        return false;
    }
    return true;
}

void ValueWriter::writeSingle(KelmoPluginParameter& value, const KUtils::ParamDesc& desc) {
    const int code = value.getType(0, TIME);
    if (desc.listCount != -1 || !isPlainFor(desc.type, code)) {
        tagged(value, code, 0);
        return;
    }
    const std::size_t start = out.size();
    element(value, code, 0);
    // A number that is written as a text would read back as a reference.
    if (!KUtils::isTextureType(desc.type) || isReference(code) || out.find('"', start) == std::string::npos) return;
    out.resize(start);
    tagged(value, code, 0);
}

void ValueWriter::describe(KelmoPluginParameter& value) {
    const int code = value.getType(-1, TIME);
    if (value.getCount(TIME) == -1) {
        element(value, value.getType(0, TIME), 0);
    } else if (code != KUtils::PARAM_LIST) {
        flat(value, code);
    } else if (value.getCount(TIME) == 0) {
        out += "[]";
    } else {
        for (ListShape shape :
             {ListShape::Ints, ListShape::Floats, ListShape::Vectors, ListShape::Plugins, ListShape::MapChannels})
            if (writeShape(value, shape)) return;
        mixed(value);
    }
}

// {"0":1}
void ValueWriter::tagged(KelmoPluginParameter& value, int code, int index) {
    if (KUtils::isTextureType(code)) code = KUtils::PARAM_PLUGIN;
    out += "{\"";
    appendNumber(out, code);
    out += "\":";
    if (code == KUtils::PARAM_LIST) {
        mixed(value);
    } else {
        element(value, code, index);
    }
    out += '}';
}

// {"0[]":[1,2]}
void ValueWriter::taggedFlat(KelmoPluginParameter& value, int code) {
    if (KUtils::isTextureType(code)) code = KUtils::PARAM_PLUGIN;
    out += "{\"";
    appendNumber(out, code);
    out += "[]\":";
    flat(value, code);
    out += '}';
}

// Whether a list is written no further than before this element; says then how long it is.
bool ValueWriter::canBeNamed(KUtils::PluginBase* plugin) const {
    if (plugin == nullptr) return false;
    const OfflinePlugin* referenced = OfflinePlugin::from(plugin);
    if (scene == nullptr || !referenced->isAlive()) return referenced->isAlive();
    const OfflinePlugin* found = scene->find(referenced->name);
    if (found == nullptr && scene->parent() != nullptr) found = scene->parent()->find(referenced->name);
    return found == referenced;
}

bool ValueWriter::cut(int index, int count) {
    if (longest < 0 || index < longest || index >= count) return false;
    if (index > 0) out += ',';
    out += "... ";
    appendNumber(out, count);
    out += " in all";
    return true;
}

void ValueWriter::mixed(KelmoPluginParameter& value) {
    const int count = value.getCount(TIME);
    out += '[';
    for (int i = 0; i < count && !cut(i, count); ++i) {
        if (i > 0) out += ',';
        const int code = value.getType(i, TIME);
        int length;
        {
            const Opened opened(value, i);
            length = value.getCount(TIME);
            if (length != -1 && code == KUtils::PARAM_LIST) tagged(value, code, 0);
            if (length != -1 && code != KUtils::PARAM_LIST) taggedFlat(value, code);
        }
        if (length != -1) continue;
        if (code < 0 || code >= KUtils::PARAM_UNKNOWN || code == KUtils::PARAM_LIST) {
            out += "null";
        } else {
            tagged(value, code, i);
        }
    }
    out += ']';
}

void ValueWriter::listOfLists(KelmoPluginParameter& value, int code) {
    const int count = value.getCount(TIME);
    out += '[';
    for (int i = 0; i < count && !cut(i, count); ++i) {
        if (i > 0) out += ',';
        const Opened opened(value, i);
        if (value.getCount(TIME) == -1) {
            out += "null";
        } else {
            flat(value, code);
        }
    }
    out += ']';
}

void ValueWriter::mapChannels(KelmoPluginParameter& value) {
    const int count = value.getCount(TIME);
    out += '[';
    for (int i = 0; i < count && !cut(i, count); ++i) {
        out += i > 0 ? ",{\"channel\":" : "{\"channel\":";
        const Opened channel(value, i);
        appendNumber(out, value.getInt(0, TIME));
        out += ",\"vertices\":";
        {
            const Opened vertices(value, 1);
            flat(value, KUtils::PARAM_VECTOR);
        }
        out += ",\"faces\":";
        {
            const Opened faces(value, 2);
            flat(value, KUtils::PARAM_INT);
        }
        out += '}';
    }
    out += ']';
}

template <class Numbers>
void ValueWriter::numbers(const Numbers* values, int count) {
    out += '[';
    for (int i = 0; i < count; ++i) {
        if (i > 0) out += ',';
        appendNumber(out, values[i]);
    }
    out += ']';
}

void ValueWriter::matrix(const KUtils::Matrix& value) {
    out += '[';
    for (int i = 0; i < 3; ++i) {
        if (i > 0) out += ',';
        const float parts[] = {value.columns[i].x, value.columns[i].y, value.columns[i].z};
        numbers(parts, 3);
    }
    out += ']';
}

// Writes a list from its whole array; false, and nothing written, when the array is not all of it.
template <class T>
bool ValueWriter::fromView(const KUtils::ListView<T>& view, int count) {
    const bool whole = view.count >= count && (view.data != nullptr || count == 0);
    for (int i = 0; whole && i < count && !cut(i, count); ++i) {
        if (i > 0) out += ',';
        if constexpr (sizeof(T) == sizeof(float)) {
            appendNumber(out, view.data[i]);
        } else {
            const KUtils::Vector& vector = view.data[i];
            const float parts[] = {vector.x, vector.y, vector.z};
            numbers(parts, 3);
        }
    }
    KUtils::releaseView(view);
    return whole;
}

void ValueWriter::flat(KelmoPluginParameter& value, int code) {
    const int count = value.getCount(TIME);
    out += '[';
    const bool done = (code == KUtils::PARAM_INT && fromView(value.getIntList(TIME), count)) ||
                      (code == KUtils::PARAM_FLOAT && fromView(value.getFloatList(TIME), count)) ||
                      (code == KUtils::PARAM_VECTOR && fromView(value.getVectorList(TIME), count));
    for (int i = 0; !done && i < count && !cut(i, count); ++i) {
        if (i > 0) out += ',';
        element(value, code, i);
    }
    out += ']';
}

void ValueWriter::element(KelmoPluginParameter& value, int code, int index) {
    switch (KUtils::isTextureType(code) ? KUtils::PARAM_PLUGIN : code) {
        case KUtils::PARAM_INT:
            appendNumber(out, value.getInt(index, TIME));
            break;
        case KUtils::PARAM_FLOAT:
            appendNumber(out, value.getFloat(index, TIME));
            break;
        case KUtils::PARAM_DOUBLE:
            appendNumber(out, value.getDouble(index, TIME));
            break;
        case KUtils::PARAM_BOOL:
            out += value.getBool(index, TIME) ? "true" : "false";
            break;
        case KUtils::PARAM_VECTOR: {
            const KUtils::Vector vector = value.getVector(index, TIME);
            const float parts[] = {vector.x, vector.y, vector.z};
            numbers(parts, 3);
            break;
        }
        case KUtils::PARAM_COLOR: {
            const KUtils::Color color = value.getColor(index, TIME);
            const float parts[] = {color.r, color.g, color.b};
            numbers(parts, 3);
            break;
        }
        case KUtils::PARAM_ACOLOR: {
            const KUtils::AColor color = value.getAColor(index, TIME);
            const float parts[] = {color.color.r, color.color.g, color.color.b, color.alpha};
            numbers(parts, 4);
            break;
        }
        case KUtils::PARAM_MATRIX:
            matrix(value.getMatrix(index, TIME));
            break;
        case KUtils::PARAM_TRANSFORM: {
            const KUtils::TraceTransform transform = value.getTransform(index, TIME);
            out += '[';
            matrix(transform.matrix);
            out += ',';
            numbers(transform.offset, 3);
            out += ']';
            break;
        }
        case KUtils::PARAM_STRING: {
            const char* text = value.getString(index, TIME);
            if (text != nullptr) {
                appendText(out, text);
            } else {
                out += "null";
            }
            break;
        }
        case KUtils::PARAM_PLUGIN: {
            const char* output = nullptr;
            KUtils::PluginBase* plugin = value.getPlugin(index, TIME, &output);
            if (!canBeNamed(plugin)) {
                out += "null";
            } else if (output == nullptr) {
                appendText(out, KUtils::pluginName(plugin));
            } else {
                out += '[';
                appendText(out, KUtils::pluginName(plugin));
                out += ',';
                appendText(out, output);
                out += ']';
            }
            break;
        }
        default:
            out += "null";
    }
}

}  // namespace Offline
