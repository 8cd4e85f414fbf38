// The mapping channels: the walk of a reader and of a writer, the fallbacks, growth and clones.
#include "check.h"
#include "helpers/setters.h"
#include "helpers/value_classes.h"
#include "test_allocator.h"

using namespace value_classes;

namespace {

// Two channels, numbered 10 and 20; the first with three vertices and two faces, the second empty.
void fill(DefMapChannelsParam& value) {
    KelmoSettableParamInterface& settable = settableOf(value);
    settable.setCount(2);
    for (int channel = 0; channel < 2; ++channel) {
        value.openList(channel);
        settable.setInt(10 * (channel + 1), 0, 0.0);
        value.closeList(0);
    }
    value.openList(0);
    value.openList(1);
    for (int i = 0; i < 3; ++i) settable.setVector(Vector{1.0f * static_cast<float>(i), 2, 3}, -1, 0.0);
    value.closeList(0);
    value.openList(2);
    for (int i = 0; i < 2; ++i) settable.setInt(100 + i, -1, 0.0);
    value.closeList(0);
    value.closeList(0);
}

// Opens `levels` of the path {0, part}.
void open(DefMapChannelsParam& value, int levels, int part) {
    if (levels > 0) value.openList(0);
    if (levels > 1) value.openList(part);
    for (int i = 2; i < levels; ++i) value.openList(0);
}

struct Row {
    const char* label;
    int depth;
    int part;
    int count;
    int typeOfWhole;  // getType(-1)
    int typeOf0, typeOf1, typeOf2, typeOf3;
    int number;  // getInt
    int faces;   // getIntList
    int vertices;
};

const Row rows[] = {
    {"below zero", -1, 0, 2, 0, 0, 4, 0, 10000, 0, 0, 0},
    {"the channels", 0, 0, 2, 12, 12, 12, 12, 12, 0, 0, 0},
    {"a channel", 1, 0, 3, 12, 0, 4, 0, 10000, 10, 0, 0},
    {"its number", 2, 0, -1, 0, 0, 4, 0, 10000, 10, 0, 0},
    {"its vertices", 2, 1, 3, 4, 0, 4, 0, 10000, 10, 0, 3},
    {"its faces", 2, 2, 2, 0, 0, 4, 0, 10000, 10, 2, 0},
    {"no part of it", 2, 3, 2, 10000, 0, 4, 0, 10000, 10, 0, 0},
    {"a negative part", 2, -1, 2, 10000, 0, 4, 0, 10000, 10, 0, 0},
    {"too deep", 3, 1, 2, 4, 0, 4, 0, 10000, 0, 0, 0},
};

}  // namespace

TEST_CASE(everyLevelOfTheMapChannels) {
    const NothingLeft nothingLeft;
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        DefMapChannelsParam value("map_channels", true);
        fill(value);
        if (row.depth < 0) value.closeList(0);
        open(value, row.depth, row.part);
        CHECK_EQ(value.getCount(0.0), row.count);
        const int expected[] = {row.typeOfWhole, row.typeOf0, row.typeOf1, row.typeOf2, row.typeOf3};
        for (int i = -1; i < 4; ++i) CHECK_EQ(static_cast<int>(value.getType(i, 0.0)), expected[i + 1]);
        for (int i : {-1, 0, 5}) CHECK_EQ(value.getInt(i, 0.0), row.number);
        CHECK_EQ(value.getIntList(0.0).count, row.faces);
        CHECK_EQ(value.getVectorList(0.0).count, row.vertices);
        CHECK_EQ(value.getFloatList(0.0).count, 0);
        CHECK_EQ(value.getColorList(0.0).count, 0);
        // Nothing else is answered; the number is true as any int is, and the value stands for itself.
        describe::Line line;
        if (row.number != 0) line.add("int %d true", row.number);
        line.add("self");
        CHECK_TEXT(describe::answers(value, 0).text, line.text);
    }
}

TEST_CASE(opensAndClosesAreCounted) {
    DefMapChannelsParam value("map_channels", false);
    CHECK_EQ(value.openList(4), ListHandle{1});
    CHECK_EQ(value.openList(1), ListHandle{2});
    CHECK_EQ(value.openListImpl(0), ListHandle{3});
    for (int depth = 2; depth >= -2; --depth) CHECK_EQ(value.closeList(0), ListHandle{depth});
    CHECK_EQ(value.openList(0), ListHandle{-1});
    CHECK_EQ(value.openList(0), ListHandle{0});
    CHECK_EQ(value.getCount(0.0), 0);
}

TEST_CASE(aChannelThatIsNotThere) {
    DefMapChannelsParam value("map_channels", false);
    fill(value);
    for (int missing : {-1, 2, INT32_MAX, INT32_MIN}) {
        value.openList(missing);
        CHECK_EQ(value.getCount(0.0), 3);
        CHECK_EQ(value.getInt(0, 0.0), 0);
        settableOf(value).setInt(99, 0, 0.0);
        for (int part = 0; part < 3; ++part) {
            value.openList(part);
            CHECK_EQ(value.getCount(0.0), -1);
            for (const setters::Setter& setter : setters::all) setter.apply(settableOf(value), 0);
            settableOf(value).setCount(4);
            settableOf(value).reserve(4);
            CHECK_EQ(value.getCount(0.0), -1);
            CHECK_EQ(value.getIntList(0.0).count, 0);
            CHECK_EQ(value.getVectorList(0.0).count, 0);
            value.closeList(0);
        }
        value.closeList(0);
    }
    value.openList(0);
    CHECK_EQ(value.getInt(0, 0.0), 10);
}

// What each setter changes at each level: the numbers of the channels, the vertices or the faces.
TEST_CASE(settersOfTheMapChannels) {
    const NothingLeft nothingLeft;
    for (const Row& row : rows) {
        for (int s = 0; s < setters::setterCount; ++s) {
            for (int index : {0, 1, -1, 50}) {
                CHECK_ROW(row.label);
                DefMapChannelsParam value("map_channels", false);
                fill(value);
                if (row.depth < 0) value.closeList(0);
                open(value, row.depth, row.part);
                setters::all[s].apply(settableOf(value), index);
                while (value.closeList(0) > 0) continue;
                while (value.openList(0) < 1) continue;

                const bool number = s == setters::SetInt && row.depth == 1;
                const bool face = s == setters::SetInt && row.depth == 2 && row.part == 2;
                const bool vertex = s == setters::SetVector && row.depth == 2 && row.part == 1;
                CHECK_EQ(value.getInt(0, 0.0), number ? -3 : 10);
                value.openList(1);
                const ListView<Vector> vertices = value.getVectorList(0.0);
                CHECK_EQ(vertices.count, vertex && (index < 0 || index > 2) ? 4 : 3);
                for (int i = 0; i < vertices.count; ++i)
                    CHECK_EQ(vertices.data[i].x, vertex && (i == index || i == 3) ? 7.0f : static_cast<float>(i));
                value.closeList(0);
                value.openList(2);
                const ListView<std::int32_t> faces = value.getIntList(0.0);
                CHECK_EQ(faces.count, face && (index < 0 || index > 1) ? 3 : 2);
                for (int i = 0; i < faces.count; ++i)
                    CHECK_EQ(faces.data[i], face && (i == index || i == 2) ? -3 : 100 + i);
            }
        }
    }
}

TEST_CASE(countsOfTheMapChannels) {
    const NothingLeft nothingLeft;
    DefMapChannelsParam value("map_channels", true);
    fill(value);
    KelmoSettableParamInterface& settable = settableOf(value);
    settable.setCount(5);
    CHECK_EQ(value.getCount(0.0), 5);
    value.openList(4);
    CHECK_EQ(value.getInt(0, 0.0), 0);
    settable.setCount(7);  // a channel itself has no count to set
    CHECK_EQ(value.getCount(0.0), 3);
    value.openList(0);
    settable.setCount(7);  // nor has its number
    CHECK_EQ(value.getCount(0.0), -1);
    value.closeList(0);
    value.openList(2);
    settable.setCount(3);
    CHECK_EQ(value.getIntList(0.0).count, 3);
    settable.reserve(2);
    CHECK_EQ(value.getCount(0.0), 0);
    settable.setInt(8, -1, 0.0);
    CHECK_EQ(value.getIntList(0.0).data[0], 8);
    settable.setCount(-3);
    CHECK_EQ(value.getCount(0.0), 0);
    value.closeList(0);
    value.closeList(0);
    // The old channels moved; their arrays are whole.
    value.openList(0);
    value.openList(1);
    CHECK_EQ(value.getVectorList(0.0).data[2].x, 2.0f);
    settable.reserve(10);
    CHECK_EQ(value.getCount(0.0), 0);
    settable.setCount(3);
    CHECK_EQ(value.getVectorList(0.0).data[2].x, 2.0f);
    value.closeList(0);
    value.closeList(0);
    // A channel left behind comes back inside the capacity, and ends when the block is replaced.
    settable.setCount(1);
    settable.setCount(2);
    value.openList(1);
    CHECK_EQ(value.getInt(0, 0.0), 20);
    value.closeList(0);
    settable.setCount(1);
    settable.setCount(6);
    value.openList(1);
    CHECK_EQ(value.getInt(0, 0.0), 0);
    value.closeList(0);
    settable.reserve(2);
    CHECK_EQ(value.getCount(0.0), 0);
    settable.setCount(-1);
    CHECK_EQ(value.getCount(0.0), 0);
}

TEST_CASE(partsGrowByTheirStep) {
    const NothingLeft nothingLeft;
    DefMapChannelsParam value("map_channels", false);
    settableOf(value).setCount(1);
    value.openList(0);
    value.openList(1);
    const long long before = static_cast<long long>(test_allocator::counters().requests);
    for (int i = 0; i < 100; ++i) settableOf(value).setVector(Vector{1, 2, 3}, -1, 0.0);
    CHECK_EQ(static_cast<long long>(test_allocator::counters().requests), before + 1);
    CHECK_EQ(static_cast<unsigned long long>(test_allocator::requestedSize(before)), 100ull * sizeof(Vector));
}

TEST_CASE(aCloneOfMapChannelsStartsAtTheTop) {
    const NothingLeft nothingLeft;
    auto* source = new DefMapChannelsParam("map_channels", true);
    fill(*source);
    source->openList(0);
    source->openList(2);
    const Owned copy(source->clone());
    delete source;
    CHECK_TEXT(copy->getName(), "map_channels");
    CHECK_EQ(copy->getCount(0.0), 2);
    copy->openList(0);
    CHECK_EQ(copy->getInt(0, 0.0), 10);
    copy->openList(1);
    CHECK_EQ(copy->getVectorList(0.0).count, 3);
    CHECK_EQ(copy->getVectorList(0.0).data[1].x, 1.0f);
    copy->closeList(0);
    copy->openList(2);
    CHECK_EQ(copy->getIntList(0.0).data[1], 101);
    copy->closeList(0);
    copy->closeList(0);
    copy->openList(1);
    CHECK_EQ(copy->getInt(0, 0.0), 20);
    copy->openList(2);
    CHECK_EQ(copy->getCount(0.0), 0);
}
