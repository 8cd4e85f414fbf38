// Lists of lists: every getter and setter of the four classes, the cursor, clones.
#include "check.h"
#include "helpers/setters.h"
#include "helpers/value_classes.h"
#include "test_allocator.h"

using namespace value_classes;

namespace {

const char* const null = nullptr;

// The element after each setter of setters::all, at depth 1 in range; null: nothing happens.
const char* const stored[listOfListsCount][setters::setterCount] = {
    {"-3", "2", "-1", "1", null, null, null, null, null, null, null, null},
    {"-3", "2.75", "-1.5", "1", null, null, null, null, null, null, null, null},
    {null, null, null, null, null, null, null, null, null, "7,8,9", null, null},
    {null, null, null, null, null, null, null, "plugin sphere", "plugin sphere", null, null, null},
};

// What each class answers for its sample element: its own type and nothing else.
const char* const answersOf[listOfListsCount] = {"int 7", "float 2.5", "vector 1,2,3", "plugin lamp"};

void setSample(int which, KelmoSettableParamInterface& settable, int index) {
    switch (listsOfLists[which].elementType) {
        case PARAM_INT:
            settable.setInt(7, index, 0.0);
            break;
        case PARAM_FLOAT:
            settable.setFloat(2.5f, index, 0.0);
            break;
        case PARAM_VECTOR:
            settable.setVector(Vector{1, 2, 3}, index, 0.0);
            break;
        default:
            settable.setPluginOutput(&describe::lamp, "out", index, 0.0);
            break;
    }
}

// Three lists of 2, 0 and 4 sample elements.
KelmoPluginParameter* makeSample(int which) {
    KelmoPluginParameter* value = listsOfLists[which].make("frames", true);
    KelmoSettableParamInterface& settable = settableOf(*value);
    settable.setCount(3);
    for (int list : {0, 2}) {
        const ListHandle handle = value->openList(list);
        settable.setCount(list + 2);
        for (int i = 0; i < list + 2; ++i) setSample(which, settable, i);
        value->closeList(handle);
    }
    return value;
}

}  // namespace

TEST_CASE(aNewListOfListsIsAnEmptyList) {
    const NothingLeft nothingLeft;
    for (const NestedClass& row : listsOfLists) {
        CHECK_ROW(row.label);
        const Owned value(row.make("frames", false));
        CHECK_TEXT(value->getName(), "frames");
        CHECK_EQ(value->getCount(0.0), 0);
        for (int index : {-1, 0, 7}) CHECK_EQ(static_cast<int>(value->getType(index, 0.0)), 12);
        CHECK_TEXT(describe::answers(*value, 0).text, "");
    }
}

TEST_CASE(theCursorOfListsOfLists) {
    for (int i = 0; i < listOfListsCount; ++i) {
        CHECK_ROW(listsOfLists[i].label);
        const int element = static_cast<int>(listsOfLists[i].elementType);
        const Owned value(makeSample(i));
        CHECK_EQ(value->closeList(0), ListHandle{0});
        CHECK_EQ(value->getCount(0.0), 3);
        CHECK_EQ(value->openList(2), ListHandle{1});
        CHECK_EQ(value->getCount(0.0), 4);
        CHECK_EQ(static_cast<int>(value->getType(-1, 0.0)), 12);
        CHECK_EQ(static_cast<int>(value->getType(-2, 0.0)), element);
        CHECK_EQ(static_cast<int>(value->getType(0, 0.0)), element);
        CHECK_EQ(value->openList(0), ListHandle{0});
        CHECK_EQ(value->getCount(0.0), -1);
        CHECK_EQ(static_cast<int>(value->getType(-1, 0.0)), element);
        // Deeper than a list the elements of the opened list are still read.
        CHECK_TEXT(describe::answers(*value, 3).text, answersOf[i]);
        CHECK_EQ(value->closeList(0), ListHandle{1});
        CHECK_EQ(value->getCount(0.0), 4);
        CHECK_EQ(value->closeList(0), ListHandle{0});
        for (int missing : {-1, 3, 1000, INT32_MAX, INT32_MIN}) {
            CHECK_EQ(value->openList(missing), ListHandle{1});
            CHECK_EQ(value->getCount(0.0), -1);
            CHECK_TEXT(describe::answers(*value, 0).text, "");
            setSample(i, settableOf(*value), 0);
            settableOf(*value).setCount(5);
            CHECK_EQ(value->getCount(0.0), -1);
            value->closeList(0);
        }
    }
}

TEST_CASE(elementsAreReadInTheirOwnTypeOnly) {
    const NothingLeft nothingLeft;
    for (int i = 0; i < listOfListsCount; ++i) {
        CHECK_ROW(listsOfLists[i].label);
        const Owned value(makeSample(i));
        CHECK_TEXT(describe::answers(*value, 0).text, "");  // not at depth 0
        value->openList(0);
        for (int k : {0, 1}) CHECK_TEXT(describe::answers(*value, k).text, answersOf[i]);
        for (int k : {-1, 2, 1000}) CHECK_TEXT(describe::answers(*value, k).text, "");
    }
}

TEST_CASE(viewsOfTheOpenedList) {
    for (int i = 0; i < listOfListsCount; ++i) {
        CHECK_ROW(listsOfLists[i].label);
        const Owned value(makeSample(i));
        const ParamType type = listsOfLists[i].elementType;
        struct Level {
            int opened;  // the list opened, -1: none
            int count;
        };
        for (const Level level : {Level{-1, 0}, Level{0, 2}, Level{1, 0}, Level{2, 4}, Level{9, 0}}) {
            if (level.opened >= 0) value->openList(level.opened);
            CHECK_EQ(value->getIntList(0.0).count, type == PARAM_INT ? level.count : 0);
            CHECK_EQ(value->getFloatList(0.0).count, type == PARAM_FLOAT ? level.count : 0);
            CHECK_EQ(value->getVectorList(0.0).count, type == PARAM_VECTOR ? level.count : 0);
            CHECK_EQ(value->getColorList(0.0).count, 0);
            if (level.opened >= 0) value->closeList(0);
        }
    }
    const Owned ints(makeSample(0));
    ints->openList(2);
    const ListView<std::int32_t> view = ints->getIntList(0.0);
    CHECK_EQ(view.owned, 0);
    CHECK(view.shared == nullptr);
    for (int k = 0; k < 4; ++k) CHECK_EQ(view.data[k], 7);
}

TEST_CASE(settersOverwriteButNeverAppend) {
    const NothingLeft nothingLeft;
    for (int i = 0; i < listOfListsCount; ++i) {
        for (const setters::Setter& setter : setters::all) {
            const char* expected = stored[i][&setter - setters::all];
            for (int index : {0, 1, -1, 2, 1000, INT32_MIN}) {
                CHECK_ROW(setter.label);
                const Owned value(makeSample(i));
                KelmoSettableParamInterface& settable = settableOf(*value);
                setter.apply(settable, index);  // at depth 0 nothing happens
                value->openList(0);
                value->openList(0);
                setter.apply(settable, index);  // nor at depth 2
                value->closeList(0);
                CHECK_TEXT(describe::answers(*value, 0).text, answersOf[i]);
                const describe::Line before = describe::element(*value, 0);
                setter.apply(settable, index);
                CHECK_EQ(value->getCount(0.0), 2);
                for (int k : {0, 1}) {
                    const bool written = expected != null && k == index;
                    CHECK_TEXT(describe::element(*value, k).text, written ? expected : before.text);
                }
            }
        }
    }
}

TEST_CASE(theCountOfTheListsMakesThemNew) {
    const NothingLeft nothingLeft;
    for (int i = 0; i < listOfListsCount; ++i) {
        CHECK_ROW(listsOfLists[i].label);
        const Owned value(makeSample(i));
        KelmoSettableParamInterface& settable = settableOf(*value);
        for (int count : {3, 1, 2, 5, 0, -4, 4}) {
            (count % 2 != 0) ? settable.setCount(count) : settable.reserve(count);
            const int lists = count > 0 ? count : 0;
            CHECK_EQ(value->getCount(0.0), lists);
            for (int k = 0; k < lists; ++k) {
                value->openList(k);
                CHECK_EQ(value->getCount(0.0), 0);
                settable.setCount(k + 1);
                setSample(i, settable, k);
                value->closeList(0);
            }
        }
        value->openList(2);
        value->openList(0);
        settable.setCount(9);  // at depth 2 nothing happens
        value->closeList(0);
        CHECK_EQ(value->getCount(0.0), 3);
        settable.setCount(2);
        settable.setCount(3);  // inside the capacity: the old element comes back
        CHECK_TEXT(describe::answers(*value, 2).text, answersOf[i]);
        settable.reserve(6);  // as setCount
        CHECK_EQ(value->getCount(0.0), 6);
        CHECK_TEXT(describe::answers(*value, 2).text, answersOf[i]);
        CHECK_TEXT(describe::answers(*value, 5).text, "");
    }
}

TEST_CASE(aCloneOfListsOfListsStandsAlone) {
    const NothingLeft nothingLeft;
    for (int i = 0; i < listOfListsCount; ++i) {
        CHECK_ROW(listsOfLists[i].label);
        KelmoPluginParameter* source = makeSample(i);
        source->openList(2);
        const Owned copy(cloneOf(*source));
        CHECK_TEXT(copy->getName(), "frames");
        CHECK(copy->getName() != source->getName());
        CHECK_EQ(copy->getCount(0.0), 4);  // depth and current list are copied
        settableOf(*source).setCount(0);
        delete source;
        for (int k = 0; k < 4; ++k) CHECK_TEXT(describe::answers(*copy, k).text, answersOf[i]);
        copy->closeList(0);
        CHECK_EQ(copy->getCount(0.0), 3);
        copy->openList(1);
        CHECK_EQ(copy->getCount(0.0), 0);
        const Owned nameless(listsOfLists[i].make(nullptr, true));
        const Owned namelessCopy(cloneOf(*nameless));
        CHECK(namelessCopy->getName() == nullptr);
    }
}

TEST_CASE(anAbsentListIsEmptyInTheClone) {
    const NothingLeft nothingLeft;
    const Owned value(listsOfLists[0].make("frames", false));
    test_allocator::refuse(2, true);  // the outer array, then no list
    settableOf(*value).setCount(2);
    test_allocator::reset();
    CHECK_EQ(value->getCount(0.0), 2);
    value->openList(1);
    CHECK_EQ(value->getCount(0.0), -1);
    value->closeList(0);
    const Owned copy(cloneOf(*value));
    CHECK_EQ(copy->getCount(0.0), 2);
    copy->openList(1);
    CHECK_EQ(copy->getCount(0.0), 0);
}
