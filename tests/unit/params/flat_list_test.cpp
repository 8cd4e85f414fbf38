// Counts and room of the flat lists, whole arrays, and what the text and plugin lists do differently.
#include "check.h"
#include "helpers/value_classes.h"
#include "test_allocator.h"

using namespace value_classes;

namespace {

template <class List>
KelmoSettableParamInterface2& secondOf(List& list) {
    return *static_cast<KelmoSettableParamInterface2*>(list.getInterface(EXT_SETTABLE_PARAM2));
}

struct CountRow {
    const char* label;
    int before;  // elements appended first
    int argument;
    int countAfterSet;
    int countAfterReserve;
};

const CountRow countRows[] = {
    {"nothing", 0, 0, 0, 0},           {"a new list", 0, 5, 5, 0},
    {"longer", 3, 10, 10, 0},          {"the same", 3, 3, 3, 0},
    {"shorter", 3, 1, 1, 0},           {"empty", 3, 0, 0, 0},
    {"negative", 3, -1, 0, 0},         {"very negative", 3, INT32_MIN, 0, 0},
    {"beyond a step", 3, 101, 101, 0}, {"inside the step", 3, 100, 100, 0},
};

}  // namespace

TEST_CASE(setCountAndReserve) {
    for (const ValueClass& type : classes) {
        for (const CountRow& row : countRows) {
            const NothingLeft nothingLeft;
            CHECK_ROW(row.label);
            const Owned set(type.makeList("a", false));
            const Owned reserved(type.makeList("a", false));
            for (int i = 0; i < row.before; ++i) {
                type.setSample(settableOf(*set), -1);
                type.setSample(settableOf(*reserved), -1);
            }
            const describe::Line sample = describe::element(*set, 0);
            settableOf(*set).setCount(row.argument);
            CHECK_EQ(set->getCount(0.0), row.countAfterSet);
            for (int i = 0; i < row.before && i < row.countAfterSet; ++i)
                CHECK_TEXT(describe::element(*set, i).text, sample.text);
            settableOf(*reserved).reserve(row.argument);
            CHECK_EQ(reserved->getCount(0.0), row.countAfterReserve);
            // The old elements were kept in the block: the count brings them back.
            settableOf(*reserved).setCount(row.before);
            for (int i = 0; i < row.before; ++i) CHECK_TEXT(describe::element(*reserved, i).text, sample.text);
            // Appends work after any of these.
            type.setSample(settableOf(*set), -1);
            CHECK_EQ(set->getCount(0.0), row.countAfterSet + 1);
        }
    }
}

TEST_CASE(reserveAllocatesExactlyAndOnce) {
    const NothingLeft nothingLeft;
    DefVectorListParam list("a", false);
    settableOf(list).reserve(250);
    CHECK_EQ(static_cast<unsigned long long>(test_allocator::requestedSize(0)), 250ull * sizeof(Vector));
    for (int i = 0; i < 250; ++i) settableOf(list).setVector(Vector{1, 2, 3}, -1, 0.0);
    CHECK_EQ(static_cast<long long>(test_allocator::counters().requests), 1LL);
    settableOf(list).setVector(Vector{1, 2, 3}, -1, 0.0);
    CHECK_EQ(static_cast<unsigned long long>(test_allocator::requestedSize(1)), 300ull * sizeof(Vector));
}

TEST_CASE(aHundredAppendsAllocateOnce) {
    const NothingLeft nothingLeft;
    DefIntListParam list("a", false);
    for (int i = 0; i < 100; ++i) settableOf(list).setInt(i, -1, 0.0);
    CHECK_EQ(static_cast<long long>(test_allocator::counters().requests), 1LL);
    settableOf(list).setInt(100, 100, 0.0);
    CHECK_EQ(static_cast<unsigned long long>(test_allocator::requestedSize(1)), 200ull * sizeof(std::int32_t));
    for (int i = 0; i <= 100; ++i) CHECK_EQ(list.getInt(i, 0.0), i);
}

TEST_CASE(anElementOfTheListItselfIsAppendedWhole) {
    DefVectorListParam list("a", false);
    settableOf(list).setCount(2);
    settableOf(list).setVector(Vector{4, 5, 6}, 1, 0.0);
    const ListView<Vector> view = list.getVectorList(0.0);
    settableOf(list).setVector(view.data[1], -1, 0.0);
    CHECK_TEXT(describe::element(list, 2).text, "4,5,6");
}

TEST_CASE(wholeArraysOfDoubles) {
    const NothingLeft nothingLeft;
    DefDoubleListParam list("a", false);
    double values[] = {1.5, -2.5, 3.5};
    KelmoSettableParamInterface2& second = secondOf(list);
    second.setDoubleList(ListView<double>{values, nullptr, 3, 0});
    CHECK_EQ(list.getCount(0.0), 3);
    for (int i = 0; i < 3; ++i) CHECK_EQ(list.getDouble(i, 0.0), values[i]);
    CHECK_EQ(static_cast<unsigned long long>(test_allocator::requestedSize(0)), 100ull * sizeof(double));

    const ListView<double> owned = second.getDoubleList();
    CHECK_EQ(owned.count, 3);
    CHECK_EQ(owned.owned, 1);
    const auto* shared = static_cast<const SharedArray*>(owned.shared);
    CHECK(shared->allocate == kelmo_malloc);
    CHECK(shared->free == kelmo_free);
    CHECK_EQ(shared->references.load(), 1);
    settableOf(list).setDouble(9.0, 0, 0.0);
    for (int i = 0; i < 3; ++i) CHECK_EQ(owned.data[i], values[i]);
    releaseView(owned);

    // An owned view that is set is only read; fewer values shorten the list.
    const ListView<double> given = second.getDoubleList();
    second.setDoubleList(ListView<double>{given.data, given.shared, 1, 1});
    CHECK_EQ(list.getCount(0.0), 1);
    CHECK_EQ(static_cast<const SharedArray*>(given.shared)->references.load(), 1);
    releaseView(given);
    second.setDoubleList(emptyView<double>());
    CHECK_EQ(list.getCount(0.0), 0);
    second.setDoubleList(ListView<double>{values, nullptr, -3, 0});
    CHECK_EQ(list.getCount(0.0), 0);
    const ListView<double> empty = second.getDoubleList();
    CHECK(empty.data == nullptr && empty.shared != nullptr);
    CHECK_EQ(empty.count, 0);
    CHECK_EQ(empty.owned, 1);
    releaseView(empty);
    CHECK_EQ(second.getTransformList().owned, 0);
}

TEST_CASE(wholeArraysOfTransforms) {
    const NothingLeft nothingLeft;
    DefTransformListParam list("a", false);
    KelmoSettableParamInterface2& second = secondOf(list);
    Transform values[] = {sampleTransform, Transform{sampleMatrix, {0.1f, 0.2f, 0.3f}}};
    second.setTransformList(ListView<Transform>{values, nullptr, 2, 0});
    CHECK_EQ(list.getCount(0.0), 2);
    CHECK_TEXT(describe::element(list, 0).text, "transform 9,8,7/6,5,4/3,2,1 at 0.5,0.25,0.125");
    CHECK_EQ(list.getTransform(1, 0.0).offset[0], static_cast<double>(0.1f));
    const ListView<TraceTransform> owned = second.getTransformList();
    CHECK_EQ(owned.count, 2);
    CHECK_EQ(owned.data[1].offset[2], static_cast<double>(0.3f));
    releaseView(owned);
    // An owned view that is set is only read; an empty one empties the list.
    SharedArray shared{kelmo_malloc, kelmo_free, {2}};
    second.setTransformList(ListView<Transform>{values, &shared, 1, 1});
    CHECK_EQ(shared.references.load(), 2);
    CHECK_EQ(list.getCount(0.0), 1);
    second.setTransformList(emptyView<Transform>());
    CHECK_EQ(list.getCount(0.0), 0);
    CHECK_EQ(second.getDoubleList().owned, 0);
}

TEST_CASE(anOwnedViewIsEmptyWhenMemoryIsShort) {
    const NothingLeft nothingLeft;
    DefDoubleListParam list("a", false);
    settableOf(list).setDouble(1.0, 0, 0.0);
    for (int nth : {1, 2}) {
        test_allocator::refuse(nth, false);
        const ListView<double> view = secondOf(list).getDoubleList();
        CHECK(view.data == nullptr && view.shared == nullptr);
        CHECK_EQ(view.count, 0);
        CHECK_EQ(view.owned, 0);
    }
}

TEST_CASE(textsOfAListAreItsOwn) {
    const NothingLeft nothingLeft;
    DefStringListParam list("a", false);
    char given[] = "first";
    settableOf(list).setString(given, -1, 0.0);
    given[0] = 'x';
    CHECK_TEXT(list.getString(0, 0.0), "first");
    settableOf(list).setString(nullptr, -1, 0.0);
    CHECK_EQ(list.getCount(0.0), 2);
    CHECK(list.getString(1, 0.0) == nullptr);
    // Its own text as the argument, in range and appended.
    settableOf(list).setString(list.getString(0, 0.0), 0, 0.0);
    CHECK_TEXT(list.getString(0, 0.0), "first");
    settableOf(list).setString(list.getString(0, 0.0), -1, 0.0);
    CHECK_TEXT(list.getString(2, 0.0), "first");
    settableOf(list).setCount(200);
    CHECK(list.getString(199, 0.0) == nullptr);
    settableOf(list).setString("last", 199, 0.0);
    CHECK_TEXT(list.getString(199, 0.0), "last");
}

TEST_CASE(textsLeftBehindAreReleasedOnce) {
    const NothingLeft nothingLeft;
    DefStringListParam list("a", false);
    for (int i = 0; i < 5; ++i) settableOf(list).setString("text", -1, 0.0);
    settableOf(list).setCount(2);
    settableOf(list).setString("appended", -1, 0.0);  // over the third of the old texts
    settableOf(list).setCount(5);
    const char* const expected[] = {"text", "text", "appended", "text", "text"};
    for (int i = 0; i < 5; ++i) CHECK_TEXT(list.getString(i, 0.0), expected[i]);
    settableOf(list).setCount(1);
    settableOf(list).setCount(101);  // a new block: what was beyond the count ends
    CHECK_TEXT(list.getString(0, 0.0), "text");
    CHECK(list.getString(1, 0.0) == nullptr);
    settableOf(list).reserve(300);
    CHECK_EQ(list.getCount(0.0), 0);
}

TEST_CASE(pluginsAndTheirOutputs) {
    const NothingLeft nothingLeft;
    DefPluginListParam list("a", false);
    static const char* const side = "side";
    for (int i = 0; i < 3; ++i) settableOf(list).setPluginOutput(&describe::lamp, side, -1, 0.0);
    const char* output = "before";
    CHECK(list.getPlugin(5, 0.0, &output) == nullptr);
    CHECK_TEXT(output, "before");
    CHECK(list.getPlugin(-1, 0.0, &output) == nullptr);
    CHECK_TEXT(output, "before");
    CHECK(list.getPlugin(2, 0.0, nullptr) == &describe::lamp);
    CHECK(list.getPlugin(2, 0.0, &output) == &describe::lamp);
    CHECK(output == side);  // as it was given, not a copy
    settableOf(list).setPlugin(nullptr, 1, 0.0);
    CHECK_TEXT(describe::answers(list, 1).text, "no output");
    settableOf(list).setCount(6);
    CHECK_TEXT(describe::answers(list, 5).text, "no output");
    settableOf(list).setPluginOutput(&describe::sphere, side, 5, 0.0);
    CHECK_TEXT(describe::answers(list, 5).text, "plugin sphere output side");
    CHECK_EQ(list.getCount(0.0), 6);
}

TEST_CASE(theNamesOfAPluginListCatchUp) {
    // A name array that could not grow with the plugins grows when a name is set.
    const NothingLeft nothingLeft;
    DefPluginListParam list("a", false);
    test_allocator::refuse(2, false);
    settableOf(list).setCount(3);
    CHECK_EQ(list.getCount(0.0), 3);
    CHECK_TEXT(describe::answers(list, 2).text, "");
    settableOf(list).setPluginOutput(&describe::lamp, "out", 2, 0.0);
    CHECK_TEXT(describe::answers(list, 0).text, "no output");
    CHECK_TEXT(describe::answers(list, 2).text, "plugin lamp output out");
    // Names of an earlier, larger count do not come back for the plugins in between.
    settableOf(list).setPluginOutput(&describe::lamp, "old", 1, 0.0);
    settableOf(list).setCount(1);
    test_allocator::refuse(2, false);
    settableOf(list).setCount(150);
    settableOf(list).setPluginOutput(&describe::lamp, "out", 2, 0.0);
    CHECK_TEXT(describe::answers(list, 1).text, "no output");
    CHECK_TEXT(describe::answers(list, 2).text, "plugin lamp output out");
}

TEST_CASE(reserveIsForBothArraysOfAPluginList) {
    const NothingLeft nothingLeft;
    DefPluginListParam list("a", false);
    for (int i = 0; i < 3; ++i) settableOf(list).setPluginOutput(&describe::lamp, "out", -1, 0.0);
    settableOf(list).reserve(2);
    CHECK_TEXT(describe::answers(list, 1).text, "");
    settableOf(list).reserve(250);
    CHECK_TEXT(describe::answers(list, 1).text, "");
    const unsigned long long before = test_allocator::counters().requests;
    for (int i = 0; i < 250; ++i) settableOf(list).setPluginOutput(&describe::lamp, "out", -1, 0.0);
    CHECK_EQ(static_cast<unsigned long long>(test_allocator::counters().requests), before);
    CHECK_TEXT(describe::answers(list, 249).text, "plugin lamp output out");
}

TEST_CASE(theTwoArraysOfAPluginListAreLookedUpApart) {
    const NothingLeft nothingLeft;
    DefPluginListParam list("a", false);
    for (int i = 0; i < 3; ++i) settableOf(list).setPluginOutput(&describe::lamp, "out", -1, 0.0);
    test_allocator::refuse(2, false);  // the names stay where they are
    settableOf(list).reserve(500);
    CHECK_EQ(list.getCount(0.0), 0);
    CHECK_TEXT(describe::answers(list, 1).text, "output out");
    settableOf(list).setPluginOutput(&describe::sphere, "side", -1, 0.0);
    CHECK_EQ(list.getCount(0.0), 1);
    CHECK_TEXT(describe::answers(list, 0).text, "plugin sphere output side");
}

TEST_CASE(aPluginThatFindsNoRoomLeavesNoName) {
    for (bool fromThenOn : {false, true}) {
        for (int nth : {1, 2}) {
            const NothingLeft nothingLeft;
            DefPluginListParam list("a", false);
            settableOf(list).setCount(100);
            settableOf(list).setPluginOutput(&describe::lamp, "out", 2, 0.0);
            test_allocator::refuse(nth, fromThenOn);
            settableOf(list).setPluginOutput(&describe::sphere, "side", -1, 0.0);
            CHECK_EQ(list.getCount(0.0), 100);
            CHECK_TEXT(describe::answers(list, 100).text, "");
            test_allocator::refuse(1000, false);
            settableOf(list).setPluginOutput(&describe::sphere, "side", -1, 0.0);
            CHECK_TEXT(describe::answers(list, 100).text, "plugin sphere output side");
            CHECK_TEXT(describe::answers(list, 2).text, "plugin lamp output out");
        }
    }
}
