#include "core/catalogue/type_values.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace Offline {

using namespace KUtils;

std::string PathError::describe(const Json& value) {
    switch (value.GetType()) {
        case rapidjson::kNullType:
            return "null";
        case rapidjson::kFalseType:
            return "false";
        case rapidjson::kTrueType:
            return "true";
        case rapidjson::kObjectType:
            return "an object";
        case rapidjson::kArrayType:
            return "a list of " + std::to_string(value.Size());
        case rapidjson::kStringType:
            return '"' + std::string(value.GetString(), value.GetStringLength()) + '"';
        case rapidjson::kNumberType:
            break;
    }
    if (value.IsInt64()) return std::to_string(value.GetInt64());
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.9g", value.GetDouble());
    return digits;
}

namespace {

bool isNegativeZero(const Json& value) {
    return value.IsDouble() && value.GetDouble() == 0 && std::signbit(value.GetDouble());
}

// A number, or the text of one that JSON cannot spell.
bool readNumber(const Json& value, double& number, PathError& error) {
    if (value.IsNumber()) {
        number = value.GetDouble();
        return true;
    }
    const char* text = value.IsString() ? value.GetString() : "";
    if (std::strcmp(text, "nan") == 0) {
        number = std::numeric_limits<double>::quiet_NaN();
    } else if (std::strcmp(text, "inf") == 0) {
        number = std::numeric_limits<double>::infinity();
    } else if (std::strcmp(text, "-inf") == 0) {
        number = -std::numeric_limits<double>::infinity();
    } else {
        return error.expected("a number", value);
    }
    return true;
}

bool readSingle(const Json& value, float& number, PathError& error) {
    double read = 0;
    if (!readNumber(value, read, error)) return false;
    number = static_cast<float>(read);
    return !std::isinf(number) || std::isinf(read) || error.expected("a number that fits in 32 bits", value);
}

bool readFloats(const Json& value, float* floats, unsigned count, PathError& error) {
    const std::string wanted = "a list of " + std::to_string(count) + " numbers";
    if (!value.IsArray() || value.Size() != count) return error.expected(wanted.c_str(), value);
    for (unsigned i = 0; i < count; ++i) {
        const PathStep step(error, i);
        if (!readSingle(value[i], floats[i], error)) return false;
    }
    return true;
}

bool readVector(const Json& value, Vector& vector, PathError& error) {
    float floats[3];
    if (!readFloats(value, floats, 3, error)) return false;
    vector = Vector{floats[0], floats[1], floats[2]};
    return true;
}

bool readAColor(const Json& value, AColor& color, PathError& error) {
    float floats[4];
    if (!readFloats(value, floats, 4, error)) return false;
    color = AColor{{floats[0], floats[1], floats[2]}, floats[3]};
    return true;
}

bool readMatrix(const Json& value, Matrix& matrix, PathError& error) {
    if (!value.IsArray() || value.Size() != 3) return error.expected("a list of 3 columns", value);
    for (unsigned i = 0; i < 3; ++i) {
        const PathStep step(error, i);
        if (!readVector(value[i], matrix.columns[i], error)) return false;
    }
    return true;
}

bool readTransform(const Json& value, Transform& transform, PathError& error) {
    if (!value.IsArray() || value.Size() != 2) return error.expected("a list of matrix and offset", value);
    {
        const PathStep step(error, std::size_t{0});
        if (!readMatrix(value[0], transform.matrix, error)) return false;
    }
    const PathStep step(error, std::size_t{1});
    return readVector(value[1], transform.offset, error);
}

bool readText(const Json& value, ParamDeclaration& declaration, PathError& error) {
    if (value.IsNull()) return true;
    if (!value.IsString()) return error.expected("a text or null", value);
    declaration.defaultText.assign(value.GetString(), value.GetStringLength());
    if (declaration.defaultText.find('\0') != std::string::npos) return error.fail("a text cannot hold a zero byte");
    declaration.hasDefaultText = true;
    return true;
}

bool readByType(const Json& value, ParamDeclaration& declaration, PathError& error) {
    ParamDesc& desc = declaration.desc;
    switch (desc.type) {
        case PARAM_INT:
        case PARAM_TEXTURE_INT:
            if (!value.IsInt() && !isNegativeZero(value)) return error.expected("an integer of 32 bits", value);
            desc.defaultInt = value.IsInt() ? value.GetInt() : 0;
            return true;
        case PARAM_BOOL:
            if (!value.IsBool()) return error.expected("true or false", value);
            desc.defaultInt = value.GetBool() ? 1 : 0;
            return true;
        case PARAM_FLOAT:
        case PARAM_TEXTURE_FLOAT:
            return readSingle(value, desc.defaultFloat, error);
        case PARAM_DOUBLE:
            return readNumber(value, desc.defaultDouble, error);
        case PARAM_VECTOR:
        case PARAM_TEXTURE_VECTOR:
            return readVector(value, desc.defaultVector, error);
        case PARAM_COLOR: {
            Vector color{};
            if (!readVector(value, color, error)) return false;
            desc.defaultColor = Color{color.x, color.y, color.z};
            return true;
        }
        case PARAM_ACOLOR:
        case PARAM_TEXTURE:
            return readAColor(value, desc.defaultAColor, error);
        case PARAM_MATRIX:
        case PARAM_TEXTURE_MATRIX:
            return readMatrix(value, desc.defaultMatrix, error);
        case PARAM_TRANSFORM:
        case PARAM_TEXTURE_TRANSFORM:
            return readTransform(value, desc.defaultTransform, error);
        case PARAM_STRING:
            return readText(value, declaration, error);
        default:
            return error.fail("a parameter of this type has no default");
    }
}

}  // namespace

bool readDefault(const Json& value, ParamDeclaration& declaration, PathError& error) {
    if (declaration.desc.listCount != -1) return error.fail("a list has no default");
    if (!readByType(value, declaration, error)) return false;
    declaration.desc.hasDefault = 1;
    return true;
}

}  // namespace Offline
