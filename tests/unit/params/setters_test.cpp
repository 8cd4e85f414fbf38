// Every setter of every scalar and flat list, the ones that do nothing too.
#include "helpers/setters.h"
#include "check.h"
#include "helpers/value_classes.h"

using namespace value_classes;

namespace {

const char* const null = nullptr;

// The element after each setter, in the order of setters::all; null: the setter does nothing.
const char* const stored[classCount][setters::setterCount] = {
    {"-3", "2", "-1", "1", null, null, null, null, null, null, null, null},
    {"-3", "2.75", "-1.5", "1", null, null, null, null, null, null, null, null},
    {"-3", "2.75", "-1.5", "1", null, null, null, null, null, null, null, null},
    {null, null, null, null, null, null, null, null, null, "7,8,9", null, null},
    {null, null, null, null, "1,2,3", "4,5,6", null, null, null, null, null, null},
    {null, null, null, null, "1,2,3,1", "4,5,6,0.5", null, null, null, null, null, null},
    {null, null, null, null, null, null, null, null, null, null, "matrix 11,12,13/14,15,16/17,18,19",
     "matrix 21,22,23/24,25,26/27,28,29"},
    {null, null, null, null, null, null, null, null, null, null, "transform 11,12,13/14,15,16/17,18,19 at 0,0,0",
     "transform 21,22,23/24,25,26/27,28,29 at -0.5,-0.25,8"},
    {null, null, null, null, null, null, "new", null, null, null, null, null},
    {null, null, null, null, null, null, null, "plugin sphere output side", "plugin sphere no output", null, null,
     null},
};

void setRowLabel(int which, int setter) {
    static char label[64];
    std::snprintf(label, sizeof label, "%s, %s", classes[which].label, setters::all[setter].label);
    CHECK_ROW(label);
}

}  // namespace

TEST_CASE(scalarsTakeWhatTheTableSays) {
    const NothingLeft nothingLeft;
    for (int i = 0; i < classCount; ++i) {
        for (int s = 0; s < setters::setterCount; ++s) {
            for (int index : {-1, 0, 3}) {
                setRowLabel(i, s);
                const Owned value(classes[i].makeScalar("size", false));
                const describe::Line before = describe::element(*value, 0);
                setters::all[s].apply(settableOf(*value), index);
                CHECK_TEXT(describe::element(*value, 0).text, stored[i][s] != null ? stored[i][s] : before.text);
            }
        }
    }
}

TEST_CASE(listsOverwriteInRangeAndAppendElsewhere) {
    const NothingLeft nothingLeft;
    for (int i = 0; i < classCount; ++i) {
        for (int s = 0; s < setters::setterCount; ++s) {
            for (int index : {0, 1, 2, -1, 3, 4, 1000, INT32_MAX, INT32_MIN}) {
                setRowLabel(i, s);
                const Owned value(classes[i].makeList("sizes", false));
                KelmoSettableParamInterface& settable = settableOf(*value);
                for (int k = 0; k < 3; ++k) classes[i].setSample(settable, k);
                const describe::Line sample = describe::element(*value, 0);
                setters::all[s].apply(settable, index);

                const bool acts = stored[i][s] != null;
                const bool inRange = index >= 0 && index < 3;
                const int target = inRange ? index : 3;
                CHECK_EQ(value->getCount(0.0), acts && !inRange ? 4 : 3);
                for (int k = 0; k < value->getCount(0.0); ++k) {
                    CHECK_TEXT(describe::element(*value, k).text, acts && k == target ? stored[i][s] : sample.text);
                }
            }
        }
    }
}

TEST_CASE(anEmptyListTakesItsFirstElementAtAnyIndex) {
    for (int i = 0; i < classCount; ++i) {
        for (int index : {0, -1, 7}) {
            CHECK_ROW(classes[i].label);
            const Owned value(classes[i].makeList("sizes", false));
            const Owned sample(classes[i].makeScalar("size", false));
            classes[i].setSample(settableOf(*value), index);
            CHECK_EQ(value->getCount(0.0), 1);
            CHECK_TEXT(describe::element(*value, 0).text, describe::element(*sample, 0).text);
        }
    }
}

// The two settable parts of the double and the transform list act alike.
TEST_CASE(theSecondSettablePartSetsAsTheFirst) {
    const NothingLeft nothingLeft;
    for (int i = 0; i < classCount; ++i) {
        if (classes[i].type != PARAM_DOUBLE && classes[i].type != PARAM_TRANSFORM) continue;
        CHECK_ROW(classes[i].label);
        const Owned value(classes[i].makeList("sizes", false));
        auto& second = *static_cast<KelmoSettableParamInterface2*>(value->getInterface(EXT_SETTABLE_PARAM2));
        KelmoSettableParamInterface& first = settableOf(*value);
        CHECK(static_cast<void*>(&first) != static_cast<void*>(&second));
        int count = 0;
        for (int s = 0; s < setters::setterCount; ++s) {
            setters::all[s].apply(second, -1);
            if (stored[i][s] == null) continue;
            ++count;
            CHECK_TEXT(describe::element(*value, count - 1).text, stored[i][s]);
        }
        CHECK_EQ(value->getCount(0.0), count);
        second.setCount(count + 2);
        CHECK_EQ(value->getCount(0.0), count + 2);
        second.reserve(3);
        CHECK_EQ(value->getCount(0.0), 0);
        CHECK(second.getPlugin() == value.value);
        second.reservedSet5();
        second.reservedSet6();
        second.reservedSet7();
        CHECK_EQ(value->getCount(0.0), 0);
    }
}

TEST_CASE(theReservedSettersDoNothing) {
    for (int i = 0; i < classCount; ++i) {
        CHECK_ROW(classes[i].label);
        const Owned scalar(classes[i].makeScalar("size", false));
        const Owned list(classes[i].makeList("sizes", false));
        classes[i].setSample(settableOf(*list), 0);
        for (KelmoPluginParameter* value : {scalar.value, list.value}) {
            const describe::Line before = describe::element(*value, 0);
            KelmoSettableParamInterface& settable = settableOf(*value);
            settable.reservedSet1();
            settable.reservedSet2();
            settable.reservedSet3();
            settable.reservedSet4();
            value->reserved();
            CHECK_TEXT(describe::element(*value, 0).text, before.text);
        }
        settableOf(*scalar).setCount(3);
        settableOf(*scalar).reserve(3);
        CHECK_EQ(scalar->getCount(0.0), -1);
        CHECK_TEXT(describe::element(*scalar, 0).text, describe::element(*list, 0).text);
    }
}
