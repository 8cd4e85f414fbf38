#include "value_classes.h"

#include "check.h"
#include "test_allocator.h"

namespace value_classes {

namespace {

using Settable = KelmoSettableParamInterface;

constexpr TraceTransform sampleTrace{{{{9, 8, 7}, {6, 5, 4}, {3, 2, 1}}}, {0.5, 0.25, 0.125}};

template <class List>
KelmoPluginParameter* makeList(const char* name, bool ownsName) {
    return new List(name, ownsName);
}

template <class T>
KelmoPluginParameter* makeScalar(const char* name, bool ownsName);
template <>
KelmoPluginParameter* makeScalar<DefIntParam>(const char* name, bool ownsName) {
    return new DefIntParam(name, 7, ownsName);
}
template <>
KelmoPluginParameter* makeScalar<DefFloatParam>(const char* name, bool ownsName) {
    return new DefFloatParam(name, 2.5f, ownsName);
}
template <>
KelmoPluginParameter* makeScalar<DefDoubleParam>(const char* name, bool ownsName) {
    return new DefDoubleParam(name, -2.5, ownsName);
}
template <>
KelmoPluginParameter* makeScalar<DefVectorParam>(const char* name, bool ownsName) {
    return new DefVectorParam(name, Vector{1, 2, 3}, ownsName);
}
template <>
KelmoPluginParameter* makeScalar<DefColorParam>(const char* name, bool ownsName) {
    return new DefColorParam(name, Color{0.25f, 0.5f, 0.75f}, ownsName);
}
template <>
KelmoPluginParameter* makeScalar<DefAColorParam>(const char* name, bool ownsName) {
    return new DefAColorParam(name, AColor{{0.25f, 0.5f, 0.75f}, 0.125f}, ownsName);
}
template <>
KelmoPluginParameter* makeScalar<DefMatrixParam>(const char* name, bool ownsName) {
    return new DefMatrixParam(name, sampleMatrix, ownsName);
}
template <>
KelmoPluginParameter* makeScalar<DefTransformParam>(const char* name, bool ownsName) {
    return new DefTransformParam(name, sampleTrace, ownsName);
}
template <>
KelmoPluginParameter* makeScalar<DefStringParam>(const char* name, bool ownsName) {
    return new DefStringParam(name, "text", ownsName);
}
template <>
KelmoPluginParameter* makeScalar<DefPluginParam>(const char* name, bool ownsName) {
    return new DefPluginParam(name, &describe::lamp, "out", ownsName);
}

}  // namespace

const ValueClass classes[classCount] = {
    {"int", PARAM_INT, makeScalar<DefIntParam>, makeList<DefIntListParam>,
     [](Settable& to, int index) { to.setInt(7, index, 0.0); }},
    {"float", PARAM_FLOAT, makeScalar<DefFloatParam>, makeList<DefFloatListParam>,
     [](Settable& to, int index) { to.setFloat(2.5f, index, 0.0); }},
    {"double", PARAM_DOUBLE, makeScalar<DefDoubleParam>, makeList<DefDoubleListParam>,
     [](Settable& to, int index) { to.setDouble(-2.5, index, 0.0); }},
    {"vector", PARAM_VECTOR, makeScalar<DefVectorParam>, makeList<DefVectorListParam>,
     [](Settable& to, int index) {
         to.setVector(Vector{1, 2, 3}, index, 0.0);
     }},
    {"color", PARAM_COLOR, makeScalar<DefColorParam>, makeList<DefColorListParam>,
     [](Settable& to, int index) {
         to.setColor(Color{0.25f, 0.5f, 0.75f}, index, 0.0);
     }},
    {"acolor", PARAM_ACOLOR, makeScalar<DefAColorParam>, makeList<DefAColorListParam>,
     [](Settable& to, int index) {
         to.setAColor(AColor{{0.25f, 0.5f, 0.75f}, 0.125f}, index, 0.0);
     }},
    {"matrix", PARAM_MATRIX, makeScalar<DefMatrixParam>, makeList<DefMatrixListParam>,
     [](Settable& to, int index) { to.setMatrix(sampleMatrix, index, 0.0); }},
    {"transform", PARAM_TRANSFORM, makeScalar<DefTransformParam>, makeList<DefTransformListParam>,
     [](Settable& to, int index) { to.setTransform(sampleTransform, index, 0.0); }},
    {"string", PARAM_STRING, makeScalar<DefStringParam>, makeList<DefStringListParam>,
     [](Settable& to, int index) { to.setString("text", index, 0.0); }},
    {"plugin", PARAM_PLUGIN, makeScalar<DefPluginParam>, makeList<DefPluginListParam>,
     [](Settable& to, int index) { to.setPluginOutput(&describe::lamp, "out", index, 0.0); }},
};

const NestedClass listsOfLists[listOfListsCount] = {
    {"ints", PARAM_INT, makeList<DefListOfListIntParam>},
    {"floats", PARAM_FLOAT, makeList<DefListOfListFloatParam>},
    {"vectors", PARAM_VECTOR, makeList<DefListOfListVectorParam>},
    {"plugins", PARAM_PLUGIN, makeList<DefListOfListPluginParam>},
};

KelmoPluginParameter* makeMapChannels(const char* name, bool ownsName) {
    return new DefMapChannelsParam(name, ownsName);
}
KelmoPluginParameter* makeGeneric(const char* name, bool) { return new GenericSettableListParam(name); }

NothingLeft::NothingLeft() : before(test_allocator::counters().live) { test_allocator::reset(); }

NothingLeft::~NothingLeft() {
    const test_allocator::Counters now = test_allocator::counters();
    CHECK_EQ(static_cast<long long>(now.live), before);
    CHECK_EQ(static_cast<long long>(now.wrongFrees), 0LL);
    test_allocator::reset();
}

}  // namespace value_classes
