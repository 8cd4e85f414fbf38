// Every allocation is made to fail in turn, once and from then on: nothing leaks, nothing is freed twice,
// a clone is whole or null, and a value that could not be changed still answers.
#include "check.h"
#include "helpers/setters.h"
#include "helpers/value_classes.h"
#include "test_allocator.h"

using namespace value_classes;

namespace {

using Make = KelmoPluginParameter* (*)(const char* name, bool ownsName);

// Runs `scenario` with request 1, 2, ... refused until a run needs no more of them.
template <class Scenario>
void refuseEach(const Scenario& scenario) {
    for (bool fromThenOn : {false, true}) {
        bool refused = true;
        for (int nth = 1; refused; ++nth) {
            const NothingLeft nothingLeft;
            test_allocator::refuse(nth, fromThenOn);
            scenario();
            refused = test_allocator::counters().refused > 0;
            CHECK_EQ(refused, test_allocator::counters().requests >= nth);
        }
    }
}

// Every answer at every index that a count allows; the answers themselves do not matter here.
void readAll(KelmoPluginParameter& value) {
    const int count = value.getCount(0.0);
    for (int i = -1; i <= count; ++i) describe::answers(value, i);
}

void useFlat(KelmoPluginParameter* value) {
    if (value == nullptr) return;
    KelmoSettableParamInterface& settable = settableOf(*value);
    for (const setters::Setter& setter : setters::all) setter.apply(settable, -1);
    settable.setCount(4);
    for (const setters::Setter& setter : setters::all) setter.apply(settable, 3);
    readAll(*value);
    settable.setCount(2);
    for (const setters::Setter& setter : setters::all) setter.apply(settable, -1);
    settable.setCount(105);
    settable.reserve(110);
    readAll(*value);
}

void useNested(KelmoPluginParameter* value) {
    if (value == nullptr) return;
    KelmoSettableParamInterface& settable = settableOf(*value);
    settable.setCount(2);
    for (int list = 0; list < 2; ++list) {
        value->openList(list);
        settable.setInt(5, 0, 0.0);
        for (int part = 1; part < 3; ++part) {
            value->openList(part);
            for (const setters::Setter& setter : setters::all) setter.apply(settable, -1);
            settable.setCount(2);
            readAll(*value);
            value->closeList(0);
        }
        settable.setCount(3);
        for (const setters::Setter& setter : setters::all) setter.apply(settable, 1);
        readAll(*value);
        value->closeList(0);
    }
    settable.setCount(3);
    settable.setCount(1);
    settable.reserve(5);
    readAll(*value);
}

void useGeneric() {
    const Owned value(makeGeneric("anything", true));
    if (value.value == nullptr) return;
    KelmoSettableParamInterface& settable = settableOf(*value);
    settable.setCount(setters::setterCount + 1);
    for (int i = 0; i < setters::setterCount; ++i) setters::all[i].apply(settable, i);
    const ListHandle handle = value->openList(setters::setterCount);
    if (handle != 0) {
        settable.setCount(120);
        settable.setString("inner", 100, 0.0);
        settable.setCount(220);
        readAll(*value);
        value->closeList(handle);
    }
    const bool kept = static_cast<GenericSettableListParam*>(value.value)->keepPrivateTexts();
    CHECK(kept || test_allocator::counters().refused > 0);
    readAll(*value);
    settable.setInt(1, 0, 0.0);
    settable.reserve(150);
}

}  // namespace

TEST_CASE(flatValuesWithoutMemory) {
    for (const ValueClass& row : classes) {
        for (Make make : {row.makeScalar, row.makeList}) {
            CHECK_ROW(row.label);
            refuseEach([&] {
                const Owned value(make("size", true));
                useFlat(value.value);
            });
        }
    }
}

TEST_CASE(nestedValuesWithoutMemory) {
    const Make makes[] = {listsOfLists[0].make, listsOfLists[1].make, listsOfLists[2].make, listsOfLists[3].make,
                          makeMapChannels};
    for (Make make : makes) {
        refuseEach([&] {
            const Owned value(make("frames", true));
            useNested(value.value);
        });
    }
    refuseEach(useGeneric);
}

// A clone is whole or there is none.
TEST_CASE(clonesWithoutMemory) {
    Make makes[2 * classCount + listOfListsCount + 1];
    int count = 0;
    for (const ValueClass& row : classes) {
        makes[count++] = row.makeScalar;
        makes[count++] = row.makeList;
    }
    for (const NestedClass& row : listsOfLists) makes[count++] = row.make;
    makes[count++] = makeMapChannels;
    for (Make make : makes) {
        const NothingLeft nothingLeft;
        const Owned source(make("size", true));
        KelmoSettableParamInterface& settable = settableOf(*source);
        settable.setCount(2);
        for (const setters::Setter& setter : setters::all) setter.apply(settable, 1);
        for (int opened = 0; opened < 3; ++opened) {  // parts of the nested ones
            source->openList(opened == 0 ? 1 : 0);
            source->openList(opened);
            for (const setters::Setter& setter : setters::all) setter.apply(settable, -1);
            source->closeList(0);
            if (source->getCount(0.0) >= 0) settable.setCount(2);
            source->closeList(0);
        }
        const int elements = source->getCount(0.0);
        refuseEach([&] {
            const Owned copy(cloneOf(*source));
            CHECK_EQ(copy.value == nullptr, test_allocator::counters().refused > 0);
            if (copy.value == nullptr) return;
            CHECK_TEXT(copy->getName(), "size");
            CHECK_EQ(copy->getCount(0.0), elements);
            for (int i = -1; i <= elements; ++i)
                CHECK_TEXT(describe::element(*copy, i).text, describe::element(*source, i).text);
        });
    }
}

TEST_CASE(aListThatCannotGrowKeepsItsElements) {
    for (const ValueClass& row : classes) {
        const NothingLeft nothingLeft;
        CHECK_ROW(row.label);
        const Owned value(row.makeList("sizes", false));
        KelmoSettableParamInterface& settable = settableOf(*value);
        settable.setCount(3);
        for (int i = 0; i < 3; ++i) row.setSample(settable, i);
        const describe::Line sample = describe::element(*value, 2);
        test_allocator::refuse(1, true);
        row.setSample(settable, -1);
        settable.setCount(4);
        settable.reserve(4);
        CHECK_EQ(value->getCount(0.0), 3);
        for (int i = 0; i < 3; ++i) CHECK_TEXT(describe::element(*value, i).text, sample.text);
    }
}

TEST_CASE(aChannelThatCannotGrowKeepsItsArrays) {
    const NothingLeft nothingLeft;
    const Owned value(makeMapChannels("map_channels", false));
    KelmoSettableParamInterface& settable = settableOf(*value);
    settable.setCount(1);
    value->openList(0);
    for (int part : {1, 2}) {
        value->openList(part);
        settable.setCount(3);
        test_allocator::refuse(1, true);
        settable.reserve(4);
        CHECK_EQ(value->getCount(0.0), 3);
        test_allocator::reset();
        settable.reserve(4);
        CHECK_EQ(value->getCount(0.0), 0);
        value->closeList(0);
    }
    value->closeList(0);
}

TEST_CASE(aWholeArrayThatCannotBeHadChangesNothing) {
    const NothingLeft nothingLeft;
    double numbers[] = {1.5, 2.5};
    Transform transforms[] = {sampleTransform, sampleTransform};
    DefDoubleListParam doubles("a", false);
    DefTransformListParam wide("a", false);
    test_allocator::refuse(1, true);
    doubles.setDoubleList(borrowedView(numbers, 2));
    wide.setTransformList(borrowedView(transforms, 2));
    CHECK_EQ(doubles.getCount(0.0), 0);
    CHECK_EQ(wide.getCount(0.0), 0);
    test_allocator::reset();
    doubles.setDoubleList(borrowedView(numbers, 2));
    wide.setTransformList(borrowedView(transforms, 2));
    CHECK_EQ(doubles.getDouble(1, 0.0), 2.5);
    CHECK_EQ(wide.getTransform(1, 0.0).offset[2], 0.125);
    // No array and an empty one both leave an empty list.
    wide.setTransformList(emptyView<Transform>());
    CHECK_EQ(wide.getCount(0.0), 0);
    wide.setTransformList(borrowedView(transforms, 1));
    wide.setTransformList(borrowedView(transforms, 0));
    CHECK_EQ(wide.getCount(0.0), 0);
}

TEST_CASE(whatCannotBeCopiedIsNull) {
    const NothingLeft nothingLeft;
    test_allocator::refuse(1, true);
    {
        DefIntParam nameless("size", 1, true);
        CHECK(nameless.getName() == nullptr);
        DefStringParam text("size", "text", false);
        CHECK(text.getString(0, 0.0) == nullptr);
        DefPluginParam plugin("size", &describe::lamp, "out", false);
        CHECK_TEXT(describe::element(plugin, 0).text, "plugin lamp no output");
        CHECK(classes[0].makeScalar("size", true) == nullptr);
        GenericSettableListParam generic("anything");
        CHECK(generic.getName() == nullptr);
        settableOf(generic).setInt(5, 0, 0.0);
        CHECK_EQ(static_cast<int>(generic.getType(0, 0.0)), 0);
        CHECK_EQ(generic.getInt(0, 0.0), 0);
        settableOf(generic).setCount(3);
        CHECK_EQ(generic.getCount(0.0), -1);
    }
    test_allocator::reset();
    DefStringParam text("size", "text", false);
    test_allocator::refuse(1, true);
    settableOf(text).setString("other", 0, 0.0);
    CHECK(text.getString(0, 0.0) == nullptr);
}
