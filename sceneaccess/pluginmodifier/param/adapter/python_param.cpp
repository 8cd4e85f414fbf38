#include "param/adapter/python_param.h"

#include "param/adapter/python_conversions.h"
#include "param/declaration/lookup_param_desc.h"
#include "scene/lookup.h"

namespace KUtils::Python {

namespace {

// Whether a list has an element at `index`. The element itself may be null: _getParam hands out lists with holes.
bool hasElement(PyObject* list, int index) { return index >= 0 && index < PyList_GET_SIZE(list); }

Vector vectorOf(PyObject* tuple) {
    Vector vector;
    vector.x = floatOf(tupleItem(tuple, 0));
    vector.y = floatOf(tupleItem(tuple, 1));
    vector.z = floatOf(tupleItem(tuple, 2));
    return vector;
}

Color colorOf(PyObject* tuple) {
    const Vector vector = vectorOf(tuple);
    return Color{vector.x, vector.y, vector.z};
}

Matrix matrixOf(PyObject* tuple) {
    Matrix matrix;
    for (int i = 0; i < 3; ++i) matrix.columns[i] = vectorOf(tupleItem(tuple, i));
    return matrix;
}

}  // namespace

PythonParam::PythonParam(PyObject* tagged, const char* paramName)
    : current(tagged), value(taggedValue(tagged)), name(paramName), typeCode(taggedCode(tagged)) {}

int PythonParam::getCount(double) { return isList(value) ? static_cast<int>(PyList_GET_SIZE(value)) : -1; }

ListHandle PythonParam::openListImpl(int index) {
    if (!isList(value) || !hasElement(value, index)) return 0;
    const auto handle = reinterpret_cast<ListHandle>(current);
    current = PyList_GET_ITEM(value, index);
    value = taggedValue(current);
    return handle;
}

ListHandle PythonParam::closeList(ListHandle handle) {
    if (handle == 0) return 0;
    current = reinterpret_cast<PyObject*>(handle);
    value = taggedValue(current);
    return 0;
}

ParamType PythonParam::getType(int index, double) {
    if (!isList(value)) return static_cast<ParamType>(taggedCode(current));
    if (!hasElement(value, index)) return PARAM_UNKNOWN;
    return static_cast<ParamType>(taggedCode(PyList_GET_ITEM(value, index)));
}

PyObject* PythonParam::valueOfType(int index, ParamType code) {
    if (getType(index, 0.0) != code) return nullptr;
    if (!isList(value)) return value;
    return hasElement(value, index) ? taggedValue(PyList_GET_ITEM(value, index)) : nullptr;
}

int PythonParam::getInt(int index, double) {
    PyObject* object = valueOfType(index, PARAM_INT);
    return object != nullptr ? intOf(object) : 0;
}

float PythonParam::getFloat(int index, double) {
    PyObject* object = valueOfType(index, PARAM_FLOAT);
    return object != nullptr ? floatOf(object) : 0.0f;
}

double PythonParam::getDouble(int index, double) {
    PyObject* object = valueOfType(index, PARAM_DOUBLE);
    return object != nullptr ? doubleOf(object) : 0.0;
}

bool PythonParam::getBool(int index, double) {
    PyObject* object = valueOfType(index, PARAM_BOOL);
    return object != nullptr && intOf(object) != 0;
}

Vector PythonParam::getVector(int index, double) {
    PyObject* object = valueOfType(index, PARAM_VECTOR);
    return object != nullptr ? vectorOf(object) : Vector{};
}

Color PythonParam::getColor(int index, double) {
    PyObject* object = valueOfType(index, PARAM_COLOR);
    return object != nullptr ? colorOf(object) : Color{};
}

AColor PythonParam::getAColor(int index, double) {
    PyObject* object = valueOfType(index, PARAM_ACOLOR);
    if (object == nullptr) return AColor{};
    AColor color;
    color.color = colorOf(tupleItem(object, 0));
    color.alpha = floatOf(tupleItem(object, 1));
    return color;
}

Matrix PythonParam::getMatrix(int index, double) {
    PyObject* object = valueOfType(index, PARAM_MATRIX);
    return object != nullptr ? matrixOf(object) : Matrix{};
}

TraceTransform PythonParam::getTransform(int index, double) {
    TraceTransform transform{};
    PyObject* object = valueOfType(index, PARAM_TRANSFORM);
    if (object == nullptr) return transform;
    transform.matrix = matrixOf(tupleItem(object, 0));
    PyObject* offset = tupleItem(object, 1);
    for (int i = 0; i < 3; ++i) transform.offset[i] = doubleOf(tupleItem(offset, i));
    return transform;
}

const char* PythonParam::getString(int index, double) { return textOf(valueOfType(index, PARAM_STRING)); }

PluginBase* PythonParam::getPlugin(int index, double, const char** outputName) {
    if (isList(value) && !hasElement(value, index)) return nullptr;
    PyObject* element = isList(value) ? PyList_GET_ITEM(value, index) : current;
    const std::int32_t code = taggedCode(element);
    if (code != PARAM_PLUGIN && code != PARAM_OUTPUT_TEXTURE) {
        if (outputName != nullptr) *outputName = nullptr;
        return nullptr;
    }

    PyObject* reference = taggedValue(element);
    if (!isList(value) && typeCode == PARAM_LIST) reference = tupleItem(reference, 1);
    const bool output = code == PARAM_OUTPUT_TEXTURE;
    const char* plugin = textOf(output ? tupleItem(reference, 0) : reference);
    Plugin* found = lookupPlugin(plugin != nullptr ? plugin : "");
    if (output && outputName != nullptr) {
        // The declaration's own name outlives the script's text.
        const char* wanted = textOf(tupleItem(reference, 1));
        *outputName = wanted;
        if (wanted != nullptr) *outputName = lookupParamDesc(found, wanted).name;
    }
    return found;
}

}  // namespace KUtils::Python
