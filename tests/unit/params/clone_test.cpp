// Clones, names, and the texts and records that values own or share.
#include <cstring>

#include "check.h"
#include "helpers/value_classes.h"
#include "test_allocator.h"

using namespace value_classes;

namespace {

// The record of an array inside a value, read where it stands.
struct RawArray {
    std::int32_t count, step, capacity;
    const char* data;
};

RawArray arrayAt(KelmoPluginParameter& value, int offset) {
    RawArray raw;
    const char* bytes = reinterpret_cast<const char*>(&value) + offset;
    std::memcpy(&raw.count, bytes, 4);
    std::memcpy(&raw.step, bytes + 4, 4);
    std::memcpy(&raw.capacity, bytes + 8, 4);
    std::memcpy(&raw.data, bytes + 16, 8);
    return raw;
}

}  // namespace

TEST_CASE(aNameIsCopiedOrBorrowed) {
    const NothingLeft nothingLeft;
    for (const ValueClass& row : classes) {
        CHECK_ROW(row.label);
        for (auto make : {row.makeScalar, row.makeList}) {
            char name[] = "radius";
            const Owned owning(make(name, true));
            const Owned borrowing(make(name, false));
            CHECK(owning->getName() != name);
            CHECK_TEXT(owning->getName(), "radius");
            CHECK(borrowing->getName() == name);
            const Owned owningCopy(cloneOf(*owning));
            const Owned borrowingCopy(cloneOf(*borrowing));
            CHECK_TEXT(owningCopy->getName(), "radius");
            CHECK(owningCopy->getName() != owning->getName());
            CHECK(borrowingCopy->getName() == name);
            for (bool ownsName : {false, true}) {
                const Owned nameless(make(nullptr, ownsName));
                CHECK(nameless->getName() == nullptr);
                const Owned copy(cloneOf(*nameless));
                CHECK(copy->getName() == nullptr);
            }
        }
    }
}

TEST_CASE(aScalarsCloneHasTheValueAndStandsAlone) {
    const NothingLeft nothingLeft;
    for (const ValueClass& row : classes) {
        CHECK_ROW(row.label);
        auto* source = row.makeScalar("size", true);
        const describe::Line sample = describe::element(*source, 0);
        const Owned copy(cloneOf(*source));
        CHECK_EQ(static_cast<int>(copy->getType(0, 0.0)), static_cast<int>(row.type));
        row.setSample(settableOf(*source), 0);
        delete source;
        CHECK_TEXT(describe::element(*copy, 0).text, sample.text);
    }
}

TEST_CASE(aListsCloneHasTheElementsExactly) {
    for (const ValueClass& row : classes) {
        const NothingLeft nothingLeft;
        CHECK_ROW(row.label);
        auto* source = row.makeList("sizes", true);
        for (int i = 0; i < 130; ++i) row.setSample(settableOf(*source), -1);
        settableOf(*source).setCount(105);
        source->openList(0);
        source->openList(0);
        const describe::Line sample = describe::element(*source, 0);
        const Owned copy(cloneOf(*source));
        CHECK_EQ(copy->getCount(0.0), -1);  // the depth is copied
        const RawArray raw = arrayAt(*copy, 104);
        CHECK_EQ(raw.count, 105);
        CHECK_EQ(raw.capacity, 105);
        CHECK_EQ(raw.step, 100);
        CHECK(raw.data != arrayAt(*source, 104).data);
        delete source;
        copy->closeList(0);
        copy->closeList(0);
        CHECK_EQ(copy->getCount(0.0), 105);
        for (int i = 0; i < 105; ++i) CHECK_TEXT(describe::element(*copy, i).text, sample.text);
        row.setSample(settableOf(*copy), -1);
        CHECK_EQ(arrayAt(*copy, 104).capacity, 200);
    }
}

TEST_CASE(anEmptyListsCloneHasNoBlock) {
    const NothingLeft nothingLeft;
    for (const ValueClass& row : classes) {
        CHECK_ROW(row.label);
        const Owned source(row.makeList("sizes", false));
        settableOf(*source).reserve(10);
        const Owned copy(cloneOf(*source));
        CHECK_EQ(copy->getCount(0.0), 0);
        CHECK(arrayAt(*copy, 104).data == nullptr);
        CHECK_EQ(arrayAt(*copy, 104).capacity, 0);
    }
}

TEST_CASE(aTextIsCopiedAndReplaced) {
    const NothingLeft nothingLeft;
    char given[] = "first";
    DefStringParam value("a", given, false);
    given[0] = 'x';
    CHECK_TEXT(value.getString(0, 0.0), "first");
    const Owned copy(value.clone());
    CHECK(copy->getString(0, 0.0) != value.getString(0, 0.0));
    value.setString(value.getString(0, 0.0) + 2, 0, 0.0);
    CHECK_TEXT(value.getString(0, 0.0), "rst");
    CHECK_TEXT(copy->getString(0, 0.0), "first");
    value.setString(nullptr, 0, 0.0);
    CHECK(value.getString(0, 0.0) == nullptr);
    value.setString("", 0, 0.0);
    CHECK_TEXT(value.getString(0, 0.0), "");
    DefStringParam none("a", nullptr, false);
    CHECK(none.getString(0, 0.0) == nullptr);
    const Owned noneCopy(none.clone());
    CHECK(noneCopy->getString(0, 0.0) == nullptr);
}

TEST_CASE(anOutputsNameIsSharedWithTheClones) {
    const NothingLeft nothingLeft;
    char given[] = "out";
    DefPluginParam value("a", &describe::lamp, given, false);
    given[0] = 'x';
    const Owned copy(value.clone());
    const char* name = nullptr;
    const char* copied = nullptr;
    CHECK(value.getPlugin(0, 0.0, &name) == &describe::lamp);
    CHECK(copy->getPlugin(0, 0.0, &copied) == &describe::lamp);
    CHECK_TEXT(name, "out");
    CHECK(name == copied);
    // Its own name as the argument: that of a record which the clone holds too, then that of one which only this has.
    for (int i = 0; i < 2; ++i) {
        value.getPlugin(0, 0.0, &name);
        value.setPluginOutput(&describe::sphere, name, 0, 0.0);
        CHECK_TEXT(describe::element(value, 0).text, "plugin sphere output out");
    }
    CHECK_TEXT(describe::element(*copy, 0).text, "plugin lamp output out");
    value.setPluginOutput(nullptr, nullptr, 0, 0.0);
    CHECK_TEXT(describe::element(value, 0).text, "no output");
    CHECK_TEXT(describe::element(*copy, 0).text, "plugin lamp output out");
}

TEST_CASE(textsOfAListAreSharedWithItsClone) {
    const NothingLeft nothingLeft;
    DefStringListParam list("a", false);
    settableOf(list).setString("one", -1, 0.0);
    settableOf(list).setString(nullptr, -1, 0.0);
    const Owned copy(list.clone());
    CHECK(copy->getString(0, 0.0) == list.getString(0, 0.0));
    settableOf(list).setString("two", 0, 0.0);
    CHECK_TEXT(copy->getString(0, 0.0), "one");
    CHECK(copy->getString(1, 0.0) == nullptr);
}
