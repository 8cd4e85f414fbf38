// Every setter with one value, for tables that call all of them.
#pragma once

#include "value_classes.h"

namespace setters {

using namespace KUtils;

struct Setter {
    const char* label;
    void (*apply)(KelmoSettableParamInterface& to, int index);
};

enum {
    SetInt,
    SetFloat,
    SetDouble,
    SetBool,
    SetColor,
    SetAColor,
    SetString,
    SetPluginOutput,
    SetPlugin,
    SetVector,
    SetMatrix,
    SetTransform,
    setterCount
};

constexpr Matrix otherMatrix{{{11, 12, 13}, {14, 15, 16}, {17, 18, 19}}};
constexpr Transform otherTransform{{{{21, 22, 23}, {24, 25, 26}, {27, 28, 29}}}, {-0.5f, -0.25f, 8.0f}};

inline const Setter all[setterCount] = {
    {"setInt", [](KelmoSettableParamInterface& to, int index) { to.setInt(-3, index, 1.0); }},
    {"setFloat", [](KelmoSettableParamInterface& to, int index) { to.setFloat(2.75f, index, 1.0); }},
    {"setDouble", [](KelmoSettableParamInterface& to, int index) { to.setDouble(-1.5, index, 1.0); }},
    {"setBool", [](KelmoSettableParamInterface& to, int index) { to.setBool(true, index, 1.0); }},
    {"setColor",
     [](KelmoSettableParamInterface& to, int index) {
         to.setColor(Color{1, 2, 3}, index, 1.0);
     }},
    {"setAColor",
     [](KelmoSettableParamInterface& to, int index) {
         to.setAColor(AColor{{4, 5, 6}, 0.5f}, index, 1.0);
     }},
    {"setString", [](KelmoSettableParamInterface& to, int index) { to.setString("new", index, 1.0); }},
    {"setPluginOutput",
     [](KelmoSettableParamInterface& to, int index) { to.setPluginOutput(&describe::sphere, "side", index, 1.0); }},
    {"setPlugin", [](KelmoSettableParamInterface& to, int index) { to.setPlugin(&describe::sphere, index, 1.0); }},
    {"setVector",
     [](KelmoSettableParamInterface& to, int index) {
         to.setVector(Vector{7, 8, 9}, index, 1.0);
     }},
    {"setMatrix", [](KelmoSettableParamInterface& to, int index) { to.setMatrix(otherMatrix, index, 1.0); }},
    {"setTransform", [](KelmoSettableParamInterface& to, int index) { to.setTransform(otherTransform, index, 1.0); }},
};

}  // namespace setters
