// The generic list: what each setter stores and each getter answers, counts and the cursor.
#include "check.h"
#include "helpers/setters.h"
#include "helpers/value_classes.h"

using namespace value_classes;

namespace {

struct SetterRow {
    int type;             // getType after the setter
    const char* answers;  // what the new record answers
};

const SetterRow setterRows[setters::setterCount] = {
    {0, "int -3 true"},
    {1, "float 2.75 double 2.75 acolor 2.75,2.75,2.75,1"},
    {2, "double -1.5 acolor -1.5,-1.5,-1.5,1"},
    {0, "int 1 true"},
    {5, "double 2 color 1,2,3 acolor 1,2,3,1"},
    {6, "double 5 acolor 4,5,6,0.5"},
    {9, "string new"},
    {10, "plugin sphere output side"},
    {10, "plugin sphere no output"},
    {4, "vector 7,8,9"},
    {7, "matrix 11,12,13/14,15,16/17,18,19"},
    {8, "transform 21,22,23/24,25,26/27,28,29 at -0.5,-0.25,8"},
};

}  // namespace

TEST_CASE(aNewGenericValueIsNothing) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    CHECK_TEXT(value.getName(), "anything");
    CHECK_EQ(value.getCount(0.0), -1);
    CHECK_EQ(static_cast<int>(value.getType(-1, 0.0)), 12);
    CHECK_EQ(static_cast<int>(value.getType(0, 0.0)), 10000);
    CHECK_EQ(static_cast<int>(value.getType(5, 0.0)), 10000);
    CHECK_EQ(value.openList(0), ListHandle{0});
    for (int index : {-1, 0, 1}) CHECK_TEXT(describe::answers(value, index).text, "");
    GenericSettableListParam nameless(nullptr);
    CHECK(nameless.getName() == nullptr);
}

TEST_CASE(everySetterMakesAScalarRoot) {
    const NothingLeft nothingLeft;
    for (int s = 0; s < setters::setterCount; ++s) {
        for (int index : {-1, 0, 1}) {
            CHECK_ROW(setters::all[s].label);
            GenericSettableListParam value("anything");
            setters::all[s].apply(settableOf(value), index);
            const bool written = index < 1;  // an index above 0 does nothing on a single value
            CHECK_EQ(static_cast<int>(value.getType(0, 0.0)), written ? setterRows[s].type : 10000);
            CHECK_EQ(value.getCount(0.0), -1);
            for (int read : {-1, 0})
                CHECK_TEXT(describe::answers(value, read).text, written ? setterRows[s].answers : "");
            CHECK_TEXT(describe::answers(value, 1).text, "");
        }
    }
}

TEST_CASE(everySetterWritesAnElement) {
    const NothingLeft nothingLeft;
    for (int s = 0; s < setters::setterCount; ++s) {
        for (int index : {0, 2, -1, 3, 1000, INT32_MIN}) {
            CHECK_ROW(setters::all[s].label);
            GenericSettableListParam value("anything");
            settableOf(value).setCount(3);
            setters::all[s].apply(settableOf(value), index);
            CHECK_EQ(value.getCount(0.0), 3);
            for (int i = 0; i < 3; ++i) {
                CHECK_EQ(static_cast<int>(value.getType(i, 0.0)), i == index ? setterRows[s].type : 10000);
                CHECK_TEXT(describe::answers(value, i).text, i == index ? setterRows[s].answers : "");
            }
            for (int i : {-1, 3, 1000}) CHECK_TEXT(describe::answers(value, i).text, "");
            CHECK_EQ(static_cast<int>(value.getType(3, 0.0)), 10000);
            CHECK_EQ(value.getIntList(0.0).count + value.getFloatList(0.0).count, 0);
            CHECK_EQ(value.getVectorList(0.0).count + value.getColorList(0.0).count, 0);
        }
    }
}

TEST_CASE(countsOfAGenericList) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    KelmoSettableParamInterface& settable = settableOf(value);
    settable.setInt(9, 0, 0.0);
    settable.setCount(3);  // a scalar root becomes a list
    CHECK_EQ(value.getCount(0.0), 3);
    CHECK_EQ(static_cast<int>(value.getType(0, 0.0)), 10000);
    settable.setInt(1, 0, 0.0);
    settable.setString("kept", 2, 0.0);
    for (int count : {2, 0, -5, 3}) {  // never shortened
        settable.setCount(count);
        CHECK_EQ(value.getCount(0.0), 3);
    }
    settable.reserve(1);  // ends empty, the records stay in the block
    CHECK_EQ(value.getCount(0.0), 0);
    settable.setCount(3);
    CHECK_EQ(value.getInt(0, 0.0), 1);
    CHECK_TEXT(value.getString(2, 0.0), "kept");
    settable.reserve(0);
    settable.setCount(150);  // a new block: what was left behind is gone
    CHECK_EQ(static_cast<int>(value.getType(0, 0.0)), 10000);
    settable.setDouble(2.5, 149, 0.0);
    settable.setCount(400);
    CHECK_EQ(value.getDouble(149, 0.0), 2.5);
    CHECK_EQ(static_cast<int>(value.getType(399, 0.0)), 10000);

    GenericSettableListParam negative("anything");
    settableOf(negative).setCount(-3);
    CHECK_EQ(negative.getCount(0.0), 0);
    GenericSettableListParam reserved("anything");
    settableOf(reserved).reserve(8);
    CHECK_EQ(reserved.getCount(0.0), 0);
}

TEST_CASE(onlyWhatExistsIsOpened) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    KelmoSettableParamInterface& settable = settableOf(value);
    settable.setCount(2);
    for (int missing : {2, 3, INT32_MAX}) CHECK_EQ(value.openList(missing), ListHandle{0});
    CHECK_EQ(value.getCount(0.0), 2);
    const ListHandle first = value.openList(0);
    CHECK(first != 0);
    CHECK_EQ(value.getCount(0.0), -1);
    CHECK_EQ(value.openList(0), ListHandle{0});  // a single value has nothing to open
    settable.setCount(1);
    const ListHandle inner = value.openListImpl(0);
    CHECK(inner != 0 && inner != first);
    settable.setColor(Color{1, 2, 3}, 0, 0.0);
    value.closeList(inner);
    value.closeList(first);
    CHECK_EQ(static_cast<int>(value.getType(0, 0.0)), 12);
    CHECK_EQ(static_cast<int>(value.getType(1, 0.0)), 10000);
}

// A reader asks an opened single value for the element's own index.
TEST_CASE(anOpenedScalarAnswersForItsNeighbours) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    KelmoSettableParamInterface& settable = settableOf(value);
    settable.setCount(3);
    for (int i = 0; i < 3; ++i) settable.setInt(10 + i, i, 0.0);
    value.openList(1);
    CHECK_EQ(value.getInt(-1, 0.0), 11);
    CHECK_EQ(value.getInt(0, 0.0), 11);
    CHECK_EQ(value.getInt(1, 0.0), 11);
    CHECK_EQ(value.getInt(2, 0.0), 12);
    CHECK_EQ(value.getInt(3, 0.0), 0);
    CHECK_EQ(static_cast<int>(value.getType(2, 0.0)), 0);
    settable.setInt(99, 2, 0.0);  // but it writes itself only
    CHECK_EQ(value.getInt(2, 0.0), 12);
    value.closeList(0);
    // Two levels down the neighbours are those of the inner list.
    value.openList(0);
    settable.setCount(2);
    settable.setInt(20, 0, 0.0);
    settable.setInt(21, 1, 0.0);
    value.openList(0);
    CHECK_EQ(value.getInt(0, 0.0), 20);
    CHECK_EQ(value.getInt(1, 0.0), 21);
    CHECK_EQ(value.getInt(2, 0.0), 0);
}

TEST_CASE(aNegativeIndexOpensAnEmptyValue) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    KelmoSettableParamInterface& settable = settableOf(value);
    CHECK_EQ(value.openList(-1), ListHandle{0});  // not on a value that is no list
    settable.setCount(2);
    settable.setInt(5, 1, 0.0);
    for (int index : {-1, INT32_MIN}) {
        const ListHandle handle = value.openList(index);
        CHECK(handle != 0);
        CHECK_EQ(value.getCount(0.0), -1);
        CHECK_EQ(static_cast<int>(value.getType(0, 0.0)), 10000);
        CHECK_EQ(static_cast<int>(value.getType(-1, 0.0)), 12);
        for (const setters::Setter& setter : setters::all) setter.apply(settable, 0);
        settable.setCount(4);
        settable.reserve(4);
        CHECK_EQ(value.getCount(0.0), -1);
        CHECK_TEXT(describe::answers(value, 0).text, "");
        CHECK_EQ(value.getInt(1, 0.0), 5);  // the neighbours of the list that it was opened in
        value.closeList(handle);
        CHECK_EQ(value.getCount(0.0), 2);
    }
}

TEST_CASE(theDepthOfAGenericListFallsBelowZero) {
    const NothingLeft nothingLeft;
    GenericSettableListParam value("anything");
    KelmoSettableParamInterface& settable = settableOf(value);
    settable.setCount(2);
    settable.setInt(5, 1, 0.0);
    value.closeList(0);
    value.closeList(0);
    CHECK_EQ(value.getCount(0.0), 2);
    CHECK(value.openList(1) != 0);  // from -2 to -1, and to 0: the root stays current
    CHECK_EQ(value.getCount(0.0), 2);
    CHECK(value.openList(1) != 0);
    CHECK_EQ(value.getCount(0.0), 2);
    CHECK(value.openList(1) != 0);
    CHECK_EQ(value.getCount(0.0), -1);
    CHECK_EQ(value.getInt(0, 0.0), 5);
}
