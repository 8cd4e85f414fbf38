// Where the fields of every class stand, in bytes: the renderer's side was made for the same layout. The
// base parts are pinned with the interfaces.
#include <cstring>

#include "check.h"
#include "helpers/value_classes.h"

using namespace value_classes;

namespace {

template <class Field>
Field fieldAt(const KelmoPluginParameter& value, std::size_t offset) {
    Field field;
    std::memcpy(&field, reinterpret_cast<const char*>(&value) + offset, sizeof field);
    return field;
}

template <class Field>
bool fieldIs(const KelmoPluginParameter& value, std::size_t offset, const Field& expected) {
    const Field field = fieldAt<Field>(value, offset);
    return std::memcmp(&field, &expected, sizeof field) == 0;
}

// {count, step, capacity, data} from `offset` on.
void checkArray(const KelmoPluginParameter& value, std::size_t offset, int count, int step, int capacity) {
    CHECK_EQ(fieldAt<std::int32_t>(value, offset), count);
    CHECK_EQ(fieldAt<std::int32_t>(value, offset + 4), step);
    CHECK_EQ(fieldAt<std::int32_t>(value, offset + 8), capacity);
    CHECK_EQ(fieldAt<const void*>(value, offset + 16) != nullptr, capacity != 0);
}

struct Size {
    const char* label;
    std::size_t actual;
    std::size_t expected;
};

const Size sizes[] = {
    {"array record", sizeof(ArrayRecord<Vector>), 24},
    {"map channel", sizeof(MapChannel), 56},
    {"value record", sizeof(ValueRecord), 16},
    {"plugin reference", sizeof(PluginReference), 16},
    {"base", sizeof(DefParamBase), 80},
    {"int", sizeof(DefIntParam), 104},
    {"float", sizeof(DefFloatParam), 104},
    {"double", sizeof(DefDoubleParam), 104},
    {"vector", sizeof(DefVectorParam), 112},
    {"color", sizeof(DefColorParam), 112},
    {"acolor", sizeof(DefAColorParam), 112},
    {"matrix", sizeof(DefMatrixParam), 144},
    {"transform", sizeof(DefTransformParam), 160},
    {"string", sizeof(DefStringParam), 104},
    {"plugin", sizeof(DefPluginParam), 112},
    {"list base", sizeof(DefListParamBase), 88},
    {"int list", sizeof(DefIntListParam), 128},
    {"double list", sizeof(DefDoubleListParam), 136},
    {"transform list", sizeof(DefTransformListParam), 136},
    {"string list", sizeof(DefStringListParam), 128},
    {"plugin list", sizeof(DefPluginListParam), 152},
    {"lists of ints", sizeof(DefListOfListIntParam), 88},
    {"map channels", sizeof(DefMapChannelsParam), 136},
};

}  // namespace

TEST_CASE(sizesOfTheClasses) {
    for (const Size& row : sizes) {
        CHECK_ROW(row.label);
        CHECK_EQ(static_cast<unsigned long long>(row.actual), static_cast<unsigned long long>(row.expected));
    }
}

TEST_CASE(fieldsOfTheScalars) {
    const Owned named(classes[0].makeScalar("size", true));
    CHECK_EQ(fieldAt<std::uint32_t>(*named, 64), 1u);
    CHECK(fieldAt<const char*>(*named, 72) == named->getName());
    const Owned borrowed(classes[0].makeScalar("size", false));
    CHECK_EQ(fieldAt<std::uint32_t>(*borrowed, 64), 0u);

    CHECK_EQ(fieldAt<std::int32_t>(*named, 96), 7);
    CHECK_EQ(fieldAt<float>(*Owned(classes[1].makeScalar("size", false)), 96), 2.5f);
    CHECK_EQ(fieldAt<double>(*Owned(classes[2].makeScalar("size", false)), 96), -2.5);
    CHECK(fieldIs(*Owned(classes[3].makeScalar("size", false)), 96, Vector{1, 2, 3}));
    CHECK(fieldIs(*Owned(classes[4].makeScalar("size", false)), 96, Color{0.25f, 0.5f, 0.75f}));
    CHECK(fieldIs(*Owned(classes[5].makeScalar("size", false)), 96, AColor{{0.25f, 0.5f, 0.75f}, 0.125f}));
    CHECK(fieldIs(*Owned(classes[6].makeScalar("size", false)), 104, sampleMatrix));
    const Owned transform(classes[7].makeScalar("size", false));
    CHECK(fieldIs(*transform, 96, sampleTransform.matrix));
    CHECK_EQ(fieldAt<double>(*transform, 136), 0.5);
    CHECK_EQ(fieldAt<double>(*transform, 152), 0.125);
    const Owned text(classes[8].makeScalar("size", false));
    CHECK(fieldAt<const char*>(*text, 96) == text->getString(0, 0.0));
    const Owned plugin(classes[9].makeScalar("size", false));
    const char* output = nullptr;
    plugin->getPlugin(0, 0.0, &output);
    CHECK(charactersOf(fieldAt<const SharedText*>(*plugin, 96)) == output);
    CHECK(fieldAt<PluginBase*>(*plugin, 104) == &describe::lamp);
}

TEST_CASE(fieldsOfTheFlatLists) {
    for (const ValueClass& row : classes) {
        CHECK_ROW(row.label);
        const Owned value(row.makeList("sizes", false));
        checkArray(*value, 104, 0, 100, 0);
        row.setSample(settableOf(*value), 0);
        checkArray(*value, 104, 1, 100, 100);
        CHECK_EQ(fieldAt<std::int32_t>(*value, 80), 0);
        value->openList(0);
        CHECK_EQ(fieldAt<std::int32_t>(*value, 80), 1);
        if (row.type == PARAM_PLUGIN) checkArray(*value, 128, 1, 100, 100);
    }
}

TEST_CASE(fieldsOfListsOfLists) {
    for (const NestedClass& row : listsOfLists) {
        CHECK_ROW(row.label);
        const Owned value(row.make("frames", true));
        checkArray(*value, 32, 0, 1, 0);
        settableOf(*value).setCount(3);
        checkArray(*value, 32, 3, 1, 3);
        value->openList(2);
        CHECK_EQ(fieldAt<std::int32_t>(*value, 56), 1);
        CHECK_EQ(fieldAt<std::int32_t>(*value, 60), 2);
        CHECK_EQ(fieldAt<std::int32_t>(*value, 64), 0);
        CHECK(fieldAt<const char*>(*value, 72) == value->getName());
        CHECK_EQ(fieldAt<std::uint32_t>(*value, 80), 1u);
        // A sublist is an array record with a step of 1.
        const auto* lists = fieldAt<const ArrayRecord<char>* const*>(*value, 48);
        CHECK_EQ(lists[2]->count, 0);
        CHECK_EQ(lists[2]->step, 1);
        CHECK_EQ(lists[2]->capacity, 0);
        settableOf(*value).setCount(5);
        CHECK_EQ(lists[2]->count, 5);
        CHECK_EQ(lists[2]->capacity, 5);
        const Owned copy(cloneOf(*value));
        checkArray(*copy, 32, 3, 1, 3);
        CHECK_EQ(fieldAt<const ArrayRecord<char>* const*>(*copy, 48)[2]->step, 1);
        // No operation sets the second-level index, but the renderer may, and a clone has it too.
        const std::int32_t second = 7;
        std::memcpy(reinterpret_cast<char*>(value.value) + 64, &second, sizeof second);
        const Owned later(cloneOf(*value));
        CHECK_EQ(fieldAt<std::int32_t>(*later, 64), 7);
    }
}

TEST_CASE(fieldsOfTheMapChannels) {
    const Owned value(makeMapChannels("map_channels", false));
    settableOf(*value).setCount(2);
    checkArray(*value, 96, 2, 100, 2);
    value->openList(1);
    settableOf(*value).setInt(44, 0, 0.0);
    value->openList(2);
    CHECK_EQ(fieldAt<std::int32_t>(*value, 120), 1);
    CHECK_EQ(fieldAt<std::int32_t>(*value, 124), 2);
    CHECK_EQ(fieldAt<std::int32_t>(*value, 128), 2);
    const auto* channels = fieldAt<const MapChannel*>(*value, 112);
    CHECK_EQ(channels[1].number, 44);
    CHECK_EQ(channels[1].vertices.step, 100);
    CHECK_EQ(channels[1].faces.step, 100);
    // Counts that are set are met exactly, those that are reserved too.
    settableOf(*value).setCount(3);
    CHECK_EQ(channels[1].faces.capacity, 3);
    settableOf(*value).reserve(5);
    CHECK_EQ(channels[1].faces.capacity, 5);
    value->closeList(0);
    value->openList(1);
    settableOf(*value).setCount(3);
    CHECK_EQ(channels[1].vertices.capacity, 3);
    settableOf(*value).reserve(5);
    CHECK_EQ(channels[1].vertices.capacity, 5);
    CHECK_EQ(static_cast<int>(reinterpret_cast<const char*>(&channels[1].vertices) -
                              reinterpret_cast<const char*>(&channels[1])),
             8);
    CHECK_EQ(static_cast<int>(reinterpret_cast<const char*>(&channels[1].faces) -
                              reinterpret_cast<const char*>(&channels[1])),
             32);
}

TEST_CASE(fieldsOfTheGenericList) {
    const Owned value(makeGeneric("anything", true));
    CHECK(charactersOf(fieldAt<const SharedText*>(*value, 24)) == value->getName());
    CHECK_EQ(fieldAt<std::int32_t>(*value, 32), 10000);
    CHECK(fieldAt<const void*>(*value, 40) == nullptr);
    settableOf(*value).setCount(2);
    CHECK_EQ(fieldAt<std::int32_t>(*value, 32), 12);
    const auto* list = fieldAt<const ArrayRecord<ValueRecord>*>(*value, 40);
    CHECK_EQ(list->count, 2);
    CHECK_EQ(list->step, 100);
    CHECK_EQ(list->capacity, 100);
    checkArray(*value, 48, 0, 100, 0);
    CHECK_EQ(value->openList(1), reinterpret_cast<ListHandle>(list->data + 1));
    checkArray(*value, 48, 1, 100, 100);
    settableOf(*value).setInt(77, 0, 0.0);
    CHECK_EQ(*static_cast<const std::int32_t*>(list->data[1].payload), 77);
}
