#include "describe.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

using namespace KUtils;

namespace describe {

NamedThing lamp("lamp");
NamedThing sphere("sphere");

void Line::add(const char* format, ...) {
    const int room = static_cast<int>(sizeof text) - length;
    if (room <= 1) return;
    if (length > 0) text[length++] = ' ';
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(text + length, sizeof text - static_cast<std::size_t>(length), format, values);
    va_end(values);
    length = static_cast<int>(std::strlen(text));
}

namespace {

double wide(float value) { return static_cast<double>(value); }

template <class T>
bool isZero(const T& value) {
    const T zero{};
    return std::memcmp(&value, &zero, sizeof value) == 0;
}

void addColumns(Line& line, const char* label, const Matrix& m) {
    const Vector* c = m.columns;
    line.add("%s %g,%g,%g/%g,%g,%g/%g,%g,%g", label, wide(c[0].x), wide(c[0].y), wide(c[0].z), wide(c[1].x),
             wide(c[1].y), wide(c[1].z), wide(c[2].x), wide(c[2].y), wide(c[2].z));
}

void addTransform(Line& line, const TraceTransform& value) {
    addColumns(line, "transform", value.matrix);
    line.add("at %g,%g,%g", value.offset[0], value.offset[1], value.offset[2]);
}

void addPlugin(Line& line, KelmoPluginParameter& value, int index) {
    static const char untouched[] = "untouched";
    const char* output = untouched;
    PluginBase* plugin = value.getPlugin(index, 0.0, &output);
    if (plugin == &value) line.add("self");
    if (plugin != nullptr && plugin != &value) line.add("plugin %s", static_cast<NamedThing*>(plugin)->name);
    if (output == nullptr) line.add("no output");
    if (output != nullptr && output != untouched) line.add("output %s", output);
}

}  // namespace

Line answers(KelmoPluginParameter& value, int index) {
    Line line;
    if (value.getInt(index, 0.0) != 0) line.add("int %d", value.getInt(index, 0.0));
    if (!isZero(value.getFloat(index, 0.0))) line.add("float %g", wide(value.getFloat(index, 0.0)));
    if (!isZero(value.getDouble(index, 0.0))) line.add("double %g", value.getDouble(index, 0.0));
    if (value.getBool(index, 0.0)) line.add("true");
    const Vector vector = value.getVector(index, 0.0);
    if (!isZero(vector)) line.add("vector %g,%g,%g", wide(vector.x), wide(vector.y), wide(vector.z));
    const Color color = value.getColor(index, 0.0);
    if (!isZero(color)) line.add("color %g,%g,%g", wide(color.r), wide(color.g), wide(color.b));
    const AColor acolor = value.getAColor(index, 0.0);
    if (!isZero(acolor)) {
        line.add("acolor %g,%g,%g,%g", wide(acolor.color.r), wide(acolor.color.g), wide(acolor.color.b),
                 wide(acolor.alpha));
    }
    const Matrix matrix = value.getMatrix(index, 0.0);
    if (!isZero(matrix)) addColumns(line, "matrix", matrix);
    const TraceTransform transform = value.getTransform(index, 0.0);
    if (!isZero(transform.matrix) || !isZero(transform.offset)) addTransform(line, transform);
    if (value.getString(index, 0.0) != nullptr) line.add("string %s", value.getString(index, 0.0));
    addPlugin(line, value, index);
    return line;
}

Line element(KelmoPluginParameter& value, int index) {
    Line line;
    switch (value.getType(index, 0.0)) {
        case PARAM_INT:
            line.add("%d", value.getInt(index, 0.0));
            break;
        case PARAM_FLOAT:
            line.add("%g", wide(value.getFloat(index, 0.0)));
            break;
        case PARAM_DOUBLE:
            line.add("%g", value.getDouble(index, 0.0));
            break;
        case PARAM_VECTOR: {
            const Vector v = value.getVector(index, 0.0);
            line.add("%g,%g,%g", wide(v.x), wide(v.y), wide(v.z));
            break;
        }
        case PARAM_COLOR: {
            const Color c = value.getColor(index, 0.0);
            line.add("%g,%g,%g", wide(c.r), wide(c.g), wide(c.b));
            break;
        }
        case PARAM_ACOLOR: {
            const AColor a = value.getAColor(index, 0.0);
            line.add("%g,%g,%g,%g", wide(a.color.r), wide(a.color.g), wide(a.color.b), wide(a.alpha));
            break;
        }
        case PARAM_MATRIX:
            addColumns(line, "matrix", value.getMatrix(index, 0.0));
            break;
        case PARAM_TRANSFORM:
            addTransform(line, value.getTransform(index, 0.0));
            break;
        case PARAM_STRING: {
            const char* text = value.getString(index, 0.0);
            line.add("%s", text != nullptr ? text : "null");
            break;
        }
        case PARAM_PLUGIN:
            addPlugin(line, value, index);
            break;
        default:
            break;
    }
    return line;
}

}  // namespace describe
