// Every getter of every scalar and flat list, the ones that answer nothing too.
#include "check.h"
#include "helpers/value_classes.h"

using namespace value_classes;

namespace {

// What the sample value answers, as describe::answers writes it: zero answers are left out. A scalar and
// a list element of one type answer alike.
const char* const answersOf[classCount] = {
    "int 7 float 7 double 7 true self",
    "int 2 float 2.5 double 2.5 true color 2.5,2.5,2.5 acolor 2.5,2.5,2.5,1 self",
    "int -2 float -2.5 double -2.5 true color -2.5,-2.5,-2.5 acolor -2.5,-2.5,-2.5,1 self",
    "vector 1,2,3 self",
    "float 0.5 color 0.25,0.5,0.75 acolor 0.25,0.5,0.75,1 self",
    "float 0.5 color 0.25,0.5,0.75 acolor 0.25,0.5,0.75,0.125 self",
    "matrix 1,2,3/4,5,6/7,8,9 transform 1,2,3/4,5,6/7,8,9 at 0,0,0 self",
    "matrix 9,8,7/6,5,4/3,2,1 transform 9,8,7/6,5,4/3,2,1 at 0.5,0.25,0.125 self",
    "string text self",
    "plugin lamp output out",
};

// What a list of the type answers where it has no element: zeros through the conversions.
const char* const answersOutside[classCount] = {
    "self", "acolor 0,0,0,1 self", "acolor 0,0,0,1 self", "self", "self", "self", "self", "self", "self", ""};

// The type of a list view that a flat list hands out, or PARAM_UNKNOWN.
ParamType viewType(ParamType type) {
    const bool has = type == PARAM_INT || type == PARAM_FLOAT || type == PARAM_VECTOR || type == PARAM_COLOR;
    return has ? type : PARAM_UNKNOWN;
}

template <class T>
void checkView(const ListView<T>& view, bool filled, int count) {
    CHECK_EQ(view.data != nullptr, filled);
    CHECK_EQ(view.count, filled ? count : 0);
    CHECK(view.shared == nullptr);
    CHECK_EQ(view.owned, 0);
}

void checkViews(KelmoPluginParameter& value, ParamType filled, int count) {
    checkView(value.getIntList(0.0), filled == PARAM_INT, count);
    checkView(value.getFloatList(0.0), filled == PARAM_FLOAT, count);
    checkView(value.getVectorList(0.0), filled == PARAM_VECTOR, count);
    checkView(value.getColorList(0.0), filled == PARAM_COLOR, count);
}

}  // namespace

TEST_CASE(scalarsAnswerEveryGetter) {
    const NothingLeft nothingLeft;
    for (int i = 0; i < classCount; ++i) {
        CHECK_ROW(classes[i].label);
        const Owned value(classes[i].makeScalar("size", true));
        CHECK_TEXT(value->getName(), "size");
        for (int index : {-1, 0, 5}) {
            CHECK_TEXT(describe::answers(*value, index).text, answersOf[i]);
            CHECK_EQ(static_cast<int>(value->getType(index, 0.0)), static_cast<int>(classes[i].type));
        }
        checkViews(*value, PARAM_UNKNOWN, 0);
    }
}

TEST_CASE(scalarsHaveNoCursor) {
    for (int i = 0; i < classCount; ++i) {
        CHECK_ROW(classes[i].label);
        const Owned value(classes[i].makeScalar("size", false));
        CHECK_EQ(value->getCount(0.0), -1);
        CHECK_EQ(value->openList(0), ListHandle{0});
        CHECK_EQ(value->openListImpl(3), ListHandle{0});
        value->closeList(0);
        CHECK_EQ(value->getCount(0.0), -1);
        CHECK_TEXT(describe::answers(*value, 0).text, answersOf[i]);
    }
}

TEST_CASE(listsAnswerEveryGetterForTheirElements) {
    const NothingLeft nothingLeft;
    for (int i = 0; i < classCount; ++i) {
        CHECK_ROW(classes[i].label);
        const Owned value(classes[i].makeList("sizes", true));
        CHECK_TEXT(value->getName(), "sizes");
        CHECK_EQ(value->getCount(0.0), 0);
        checkViews(*value, PARAM_UNKNOWN, 0);
        for (int k = 0; k < 3; ++k) classes[i].setSample(settableOf(*value), k);
        CHECK_EQ(value->getCount(0.0), 3);
        for (int k = 0; k < 3; ++k) CHECK_TEXT(describe::answers(*value, k).text, answersOf[i]);
        for (int k : {-1, 3, 100, INT32_MAX, INT32_MIN}) {
            CHECK_TEXT(describe::answers(*value, k).text, answersOutside[i]);
            CHECK_EQ(static_cast<int>(value->getType(k, 0.0)), static_cast<int>(classes[i].type));
        }
        checkViews(*value, viewType(classes[i].type), 3);
    }
}

TEST_CASE(aViewShowsTheArrayItself) {
    const Owned value(new DefIntListParam("sizes", false));
    for (int k = 0; k < 4; ++k) settableOf(*value).setInt(k * 10, -1, 0.0);
    const ListView<std::int32_t> view = value->getIntList(0.0);
    for (int k = 0; k < 4; ++k) CHECK_EQ(view.data[k], k * 10);
    settableOf(*value).setInt(-5, 2, 0.0);
    CHECK_EQ(view.data[2], -5);
}

TEST_CASE(listsCountOnlyAtDepthZero) {
    for (int i = 0; i < classCount; ++i) {
        CHECK_ROW(classes[i].label);
        const Owned value(classes[i].makeList("sizes", false));
        settableOf(*value).setCount(2);
        CHECK_EQ(value->openList(0), ListHandle{0});
        CHECK_EQ(value->getCount(0.0), -1);
        CHECK_EQ(static_cast<int>(value->getType(-1, 0.0)), static_cast<int>(classes[i].type));
        value->openListImpl(0);
        value->closeList(0);
        CHECK_EQ(value->getCount(0.0), -1);
        value->closeList(0);
        CHECK_EQ(value->getCount(0.0), 2);
        // No lower bound: the depth falls below zero, and counts back up.
        value->closeList(0);
        CHECK_EQ(value->getCount(0.0), -1);
        value->openList(0);
        CHECK_EQ(value->getCount(0.0), 2);
    }
}
