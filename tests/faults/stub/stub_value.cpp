#include "stub_value.h"

using namespace KUtils;

namespace stub {

namespace {

constexpr int COUNT = 2;

// A view of two elements that the value keeps; the module gives it back after the read.
template <class T>
ListView<T> viewOf(const char* operation) {
    reach(operation);
    static T elements[COUNT] = {};
    return ListView<T>{elements, nullptr, COUNT, 0};
}

}  // namespace

const std::vector<Carried>& carriedValues() {
    static const std::vector<Carried> values = {
        {"int", 0, 0, false, true},     {"float", 1, 1, false, false},    {"double", 2, 2, false, false},
        {"bool", 3, 3, false, false},   {"vector", 4, 4, false, false},   {"color", 5, 5, false, false},
        {"acolor", 6, 6, false, false}, {"matrix", 7, 7, false, false},   {"transform", 8, 8, false, false},
        {"string", 9, 9, false, false}, {"plugin", 10, 10, false, false}, {"texture", 10, 11, false, false},
        {"ints", 0, 0, true, true},     {"floats", 1, 1, true, false},    {"doubles", 2, 2, true, false},
        {"bools", 3, 3, true, false},   {"vectors", 4, 4, true, false},   {"colors", 5, 5, true, false},
        {"acolors", 6, 6, true, false}, {"matrixs", 7, 7, true, false},   {"transforms", 8, 8, true, false},
        {"strings", 9, 9, true, false}, {"plugins", 10, 10, true, false}, {"anys", 12, 12, true, false}};
    return values;
}

const char* Value::getName() {
    reach("value.getName");
    return carried.name;
}

// A list of code 12 holds lists of ints.
int Value::getCount(double) {
    reach("value.getCount");
    if (carried.code == PARAM_LIST) return depth < 2 ? COUNT : -1;
    return carried.isList && depth == 0 ? COUNT : -1;
}

ListHandle Value::openListImpl(int) {
    reach("value.openListImpl");
    return ++depth;
}

ListHandle Value::closeList(ListHandle) {
    reach("value.closeList");
    return --depth;
}

int Value::getInt(int, double) {
    reach("value.getInt");
    return 1234567;
}
float Value::getFloat(int, double) {
    reach("value.getFloat");
    return 1.5f;
}
double Value::getDouble(int, double) {
    reach("value.getDouble");
    return 1.5;
}
bool Value::getBool(int, double) {
    reach("value.getBool");
    return true;
}
Vector Value::getVector(int, double) {
    reach("value.getVector");
    return Vector{};
}
Color Value::getColor(int, double) {
    reach("value.getColor");
    return Color{};
}
AColor Value::getAColor(int, double) {
    reach("value.getAColor");
    return AColor{};
}
Matrix Value::getMatrix(int, double) {
    reach("value.getMatrix");
    return Matrix{};
}
TraceTransform Value::getTransform(int, double) {
    reach("value.getTransform");
    return TraceTransform{};
}
const char* Value::getString(int, double) {
    reach("value.getString");
    return "some text";
}
PluginBase* Value::getPlugin(int, double, const char** outputName) {
    reach("value.getPlugin");
    if (outputName != nullptr) *outputName = nullptr;
    return referred;
}
ListView<std::int32_t> Value::getIntList(double) { return viewOf<std::int32_t>("value.getIntList"); }
ListView<float> Value::getFloatList(double) { return viewOf<float>("value.getFloatList"); }
ListView<Vector> Value::getVectorList(double) { return viewOf<Vector>("value.getVectorList"); }
ListView<Color> Value::getColorList(double) { return viewOf<Color>("value.getColorList"); }

ParamType Value::getType(int index, double) {
    reach("value.getType");
    if (carried.code != PARAM_LIST) return static_cast<ParamType>(carried.code);
    return index == -1 || depth < 1 ? PARAM_LIST : PARAM_INT;
}

PluginInterface* Value::getInterface(InterfaceID id) {
    reach("value.getInterface");
    const bool asked = id == EXT_CLONEABLE_PARAM && carried.clones;
    return asked ? static_cast<KelmoCloneableParamInterface*>(this) : nullptr;
}

KelmoPluginParameter* Value::clone() {
    reach("value.clone");
    if (answersNoClones()) return nullptr;
    return new Value(carried, referred);
}

}  // namespace stub
