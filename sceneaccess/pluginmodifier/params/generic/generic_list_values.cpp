// The typed getters and setters of the generic list. A number is read out of any payload that is long
// enough, because a setter that changes a type keeps the payload; an address only out of a payload that
// holds one.
#include <cstring>

#include "params/base/value_type.h"
#include "params/generic/generic_list_param.h"

namespace KUtils {

namespace {

// The bytes of the payload as a T, when the record is of this type.
template <class T>
bool readAs(const ValueRecord* record, ParamType type, T& to) {
    if (record == nullptr || record->type != type || payloadSize(record->kind) < sizeof(T)) return false;
    std::memcpy(&to, record->payload, sizeof(T));
    return true;
}

template <class T>
T readOrZero(const ValueRecord* record, ParamType type) {
    T value{};
    readAs(record, type, value);
    return value;
}

}  // namespace

// Reading

int GenericSettableListParam::getInt(int index, double) {
    return readOrZero<std::int32_t>(recordToRead(index), PARAM_INT);
}

bool GenericSettableListParam::getBool(int index, double time) { return getInt(index, time) != 0; }

float GenericSettableListParam::getFloat(int index, double) {
    return readOrZero<float>(recordToRead(index), PARAM_FLOAT);
}

double GenericSettableListParam::getDouble(int index, double) {
    const ValueRecord* record = recordToRead(index);
    double stored;
    if (readAs(record, PARAM_DOUBLE, stored)) return stored;
    float single;
    if (readAs(record, PARAM_FLOAT, single)) return single;
    Color color;
    if (readAs(record, PARAM_COLOR, color)) return grey(color);
    AColor withAlpha;
    if (readAs(record, PARAM_ACOLOR, withAlpha)) return grey(withAlpha.color);
    return 0.0;
}

Vector GenericSettableListParam::getVector(int index, double) {
    return readOrZero<Vector>(recordToRead(index), PARAM_VECTOR);
}

Color GenericSettableListParam::getColor(int index, double) {
    return readOrZero<Color>(recordToRead(index), PARAM_COLOR);
}

AColor GenericSettableListParam::getAColor(int index, double) {
    const ValueRecord* record = recordToRead(index);
    AColor result{};
    if (readAs(record, PARAM_ACOLOR, result)) return result;
    Color color;
    if (readAs(record, PARAM_COLOR, color)) return AColor{color, 1.0f};
    float single;
    if (readAs(record, PARAM_FLOAT, single)) return AColor{{single, single, single}, 1.0f};
    double stored;
    if (!readAs(record, PARAM_DOUBLE, stored)) return result;
    const float number = narrowed(stored);
    return AColor{{number, number, number}, 1.0f};
}

Matrix GenericSettableListParam::getMatrix(int index, double) {
    return readOrZero<Matrix>(recordToRead(index), PARAM_MATRIX);
}

TraceTransform GenericSettableListParam::getTransform(int index, double) {
    return widened(readOrZero<Transform>(recordToRead(index), PARAM_TRANSFORM));
}

const char* GenericSettableListParam::getString(int index, double) {
    const ValueRecord* record = recordToRead(index);
    if (record == nullptr || (record->kind != PayloadKind::Text && record->kind != PayloadKind::PrivateText))
        return nullptr;
    return readOrZero<const char*>(record, PARAM_STRING);
}

PluginBase* GenericSettableListParam::getPlugin(int index, double, const char** outputName) {
    const ValueRecord* record = recordToRead(index);
    if (record == nullptr || record->type != PARAM_PLUGIN) return nullptr;
    PluginReference reference{};
    if (record->kind == PayloadKind::Plugin) readAs(record, PARAM_PLUGIN, reference);
    if (outputName != nullptr) *outputName = reference.outputName;
    return reference.plugin;
}

// Writing

void GenericSettableListParam::write(ParamType type, PayloadKind kind, const void* bytes, int index) {
    ValueRecord* target = recordToWrite(index);
    if (target == nullptr) return;
    target->type = type;
    if (target->payload == nullptr) attachPayload(*target, kind, bytes);
}

void GenericSettableListParam::setInt(int value, int index, double) {
    write(PARAM_INT, PayloadKind::Int, &value, index);
}
void GenericSettableListParam::setFloat(float value, int index, double) {
    write(PARAM_FLOAT, PayloadKind::Float, &value, index);
}
void GenericSettableListParam::setDouble(double value, int index, double) {
    write(PARAM_DOUBLE, PayloadKind::Double, &value, index);
}
void GenericSettableListParam::setBool(bool value, int index, double time) { setInt(value ? 1 : 0, index, time); }
void GenericSettableListParam::setColor(const Color& value, int index, double) {
    write(PARAM_COLOR, PayloadKind::Color, &value, index);
}
void GenericSettableListParam::setAColor(const AColor& value, int index, double) {
    write(PARAM_ACOLOR, PayloadKind::AColor, &value, index);
}
void GenericSettableListParam::setString(const char* value, int index, double) {
    write(PARAM_STRING, PayloadKind::Text, &value, index);
}
void GenericSettableListParam::setPluginOutput(PluginBase* plugin, const char* outputName, int index, double) {
    const PluginReference reference{plugin, outputName};
    write(PARAM_PLUGIN, PayloadKind::Plugin, &reference, index);
}
void GenericSettableListParam::setVector(const Vector& value, int index, double) {
    write(PARAM_VECTOR, PayloadKind::Vector, &value, index);
}
void GenericSettableListParam::setMatrix(const Matrix& value, int index, double) {
    write(PARAM_MATRIX, PayloadKind::Matrix, &value, index);
}
void GenericSettableListParam::setTransform(const Transform& value, int index, double) {
    write(PARAM_TRANSFORM, PayloadKind::Transform, &value, index);
}

}  // namespace KUtils
