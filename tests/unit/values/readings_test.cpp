// How single values, flat lists, lists of lists, map channels and mixed lists answer: types, counts, getters,
// views, and the cursor.
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "check.h"
#include "core/base/counters.h"
#include "core/core_api.h"
#include "made_values.h"

using namespace Offline;

namespace {

constexpr double TIME = 0.0;

struct SingleRow {
    const char* label;
    Value* value;
    int type;
    int asInt;
    float asFloat;
    double asDouble;
    bool asBool;
    KUtils::AColor asAColor;
    KUtils::Color asColor;
};

bool same(const void* a, const void* b, std::size_t bytes) { return std::memcmp(a, b, bytes) == 0; }

}  // namespace

TEST_CASE(singlesAreReadAsOtherTypes) {
    const SingleRow rows[] = {
        {"int", single<IntKind>(-3), 0, -3, -3.0f, -3.0, true, {}, {}},
        {"int 0", single<IntKind>(0), 0, 0, 0.0f, 0.0, false, {}, {}},
        {"bool", single<BoolKind>(1), 3, 1, 1.0f, 1.0, true, {}, {}},
        {"float",
         single<FloatKind>(-2.75f),
         1,
         -2,
         -2.75f,
         -2.75,
         true,
         {{-2.75f, -2.75f, -2.75f}, 1.0f},
         {-2.75f, -2.75f, -2.75f}},
        {"float, nearly 0",
         single<FloatKind>(1e-13f),
         1,
         0,
         1e-13f,
         static_cast<double>(1e-13f),
         false,
         {{1e-13f, 1e-13f, 1e-13f}, 1.0f},
         {1e-13f, 1e-13f, 1e-13f}},
        {"float, beyond int",
         single<FloatKind>(1e20f),
         1,
         -2147483647 - 1,
         1e20f,
         static_cast<double>(1e20f),
         true,
         {{1e20f, 1e20f, 1e20f}, 1.0f},
         {1e20f, 1e20f, 1e20f}},
        {"double", single<DoubleKind>(0.5), 2, 0, 0.5f, 0.5, true, {{0.5f, 0.5f, 0.5f}, 1.0f}, {0.5f, 0.5f, 0.5f}},
        {"double, just below the border of bool",
         single<DoubleKind>(9.99999996e-13),
         2,
         0,
         9.99999996e-13f,
         9.99999996e-13,
         false,
         {{9.99999996e-13f, 9.99999996e-13f, 9.99999996e-13f}, 1.0f},
         {9.99999996e-13f, 9.99999996e-13f, 9.99999996e-13f}},
        {"color",
         single<ColorKind>({0.25f, 0.5f, 0.75f}),
         5,
         0,
         1.5f * 0.33333334f,
         0.0,
         false,
         {{0.25f, 0.5f, 0.75f}, 1.0f},
         {0.25f, 0.5f, 0.75f}},
        {"acolor",
         single<AColorKind>({{1.0f, 0.0f, 0.0f}, 0.5f}),
         6,
         0,
         0.33333334f,
         0.0,
         false,
         {{1.0f, 0.0f, 0.0f}, 0.5f},
         {1.0f, 0.0f, 0.0f}},
        {"vector", single<VectorKind>({1.0f, 2.0f, 3.0f}), 4, 0, 0.0f, 0.0, false, {}, {}},
        {"string", single<StringKind>(copyText("5")), 9, 0, 0.0f, 0.0, false, {}, {}},
        {"plugin", single<ReferenceKind>({nullptr, nullptr}), 10, 0, 0.0f, 0.0, false, {}, {}},
    };
    for (const SingleRow& row : rows) {
        CHECK_ROW(row.label);
        Value& value = *row.value;
        CHECK_TEXT(value.getName(), "name");
        CHECK_EQ(value.getCount(TIME), -1);
        for (int index : {-1, 0, 7}) {
            CHECK_EQ(static_cast<int>(value.getType(index, TIME)), row.type);
            CHECK_EQ(value.getInt(index, TIME), row.asInt);
            CHECK_EQ(value.getFloat(index, TIME), row.asFloat);
            CHECK_EQ(value.getDouble(index, TIME), row.asDouble);
            CHECK_EQ(value.getBool(index, TIME), row.asBool);
            const KUtils::AColor acolor = value.getAColor(index, TIME);
            CHECK(same(&acolor, &row.asAColor, sizeof acolor));
            const KUtils::Color color = value.getColor(index, TIME);
            CHECK(same(&color, &row.asColor, sizeof color));
        }
        CHECK_EQ(value.openListImpl(0), KUtils::ListHandle{0});
        CHECK_EQ(value.getIntList(TIME).count, 0);
        delete row.value;
    }
}

TEST_CASE(matricesAndTransforms) {
    const KUtils::Matrix matrix = {{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
    Value* value = single<MatrixKind>(matrix);
    const KUtils::TraceTransform widened = value->getTransform(0, TIME);
    CHECK(same(&widened.matrix, &matrix, sizeof matrix));
    CHECK_EQ(widened.offset[0], 0.0);
    delete value;

    value = single<TransformKind>({matrix, {0.1, 0.2, 0.3}});
    CHECK_EQ(static_cast<int>(value->getType(-1, TIME)), 8);
    CHECK_EQ(value->getTransform(0, TIME).offset[2], 0.3);
    const KUtils::Matrix part = value->getMatrix(0, TIME);
    CHECK(same(&part, &matrix, sizeof matrix));
    CHECK_EQ(value->getVector(0, TIME).x, 0.0f);
    delete value;
}

TEST_CASE(flatListsAndTheirCursor) {
    Value* value = flat<IntKind>({4, 5, 6});
    CHECK_EQ(static_cast<int>(value->getType(-1, TIME)), 0);
    CHECK_EQ(static_cast<int>(value->getType(99, TIME)), 0);
    CHECK_EQ(value->getCount(TIME), 3);
    CHECK_EQ(value->getInt(2, TIME), 6);
    CHECK_EQ(value->getFloat(1, TIME), 5.0f);
    CHECK_EQ(value->getInt(3, TIME), 0);
    CHECK_EQ(value->getInt(-1, TIME), 0);
    const KUtils::ListView<std::int32_t> view = value->getIntList(TIME);
    CHECK_EQ(view.count, 3);
    CHECK_EQ(view.owned, 0);
    CHECK_EQ(view.data[1], 5);
    CHECK(view.shared == nullptr);
    CHECK_EQ(value->getFloatList(TIME).count, 0);
    CHECK_EQ(value->openList(1), KUtils::ListHandle{0});
    CHECK_EQ(value->getCount(TIME), -1);
    value->closeList(0);
    CHECK_EQ(value->getCount(TIME), 3);
    delete value;

    value = flat<IntKind>({});
    CHECK_EQ(value->getCount(TIME), 0);
    CHECK(value->getIntList(TIME).data == nullptr);
    delete value;
}

TEST_CASE(viewsOfEveryKindThatHasOne) {
    Value* bools = flat<BoolKind>({1, 0});
    CHECK_EQ(static_cast<int>(bools->getType(0, TIME)), 3);
    CHECK_EQ(bools->getIntList(TIME).count, 2);
    CHECK(bools->getBool(0, TIME) && !bools->getBool(1, TIME));
    Value* floats = flat<FloatKind>({0.5f});
    CHECK_EQ(floats->getFloatList(TIME).data[0], 0.5f);
    Value* vectors = flat<VectorKind>({{1, 2, 3}});
    CHECK_EQ(vectors->getVectorList(TIME).data[0].z, 3.0f);
    CHECK_EQ(vectors->getColorList(TIME).count, 0);
    Value* colors = flat<ColorKind>({{1, 2, 3}});
    CHECK_EQ(colors->getColorList(TIME).data[0].b, 3.0f);
    CHECK_EQ(colors->getVectorList(TIME).count, 0);
    CHECK_EQ(colors->getAColor(0, TIME).alpha, 1.0f);
    for (Value* value : {bools, floats, vectors, colors}) delete value;
}

TEST_CASE(listsOfListsAndTheirCursor) {
    Value* value = lists<IntKind>({{1, 2}, {3}, {}}, 2);
    CHECK_EQ(static_cast<int>(value->getType(-1, TIME)), 12);
    CHECK_EQ(static_cast<int>(value->getType(1, TIME)), 12);
    CHECK_EQ(value->getCount(TIME), 3);
    CHECK_EQ(value->getInt(0, TIME), 0);
    CHECK_EQ(value->getIntList(TIME).count, 0);

    CHECK_EQ(value->openList(0), KUtils::ListHandle{1});
    CHECK_EQ(value->getCount(TIME), 2);
    CHECK_EQ(static_cast<int>(value->getType(-1, TIME)), 12);
    CHECK_EQ(static_cast<int>(value->getType(0, TIME)), 0);
    CHECK_EQ(value->getInt(1, TIME), 2);
    CHECK_EQ(value->getIntList(TIME).data[0], 1);
    CHECK_EQ(value->openList(1), KUtils::ListHandle{0});
    CHECK_EQ(value->getCount(TIME), -1);
    CHECK_EQ(static_cast<int>(value->getType(-1, TIME)), 0);
    CHECK_EQ(value->getInt(1, TIME), 2);
    CHECK_EQ(value->closeList(0), KUtils::ListHandle{1});
    CHECK_EQ(value->closeList(1), KUtils::ListHandle{0});
    CHECK_EQ(value->closeList(0), KUtils::ListHandle{0});
    CHECK_EQ(value->getCount(TIME), 3);

    value->openList(2);
    CHECK_EQ(value->getCount(TIME), -1);  // absent
    CHECK_EQ(value->getIntList(TIME).count, 0);
    value->closeList(1);
    value->openList(9);
    CHECK_EQ(value->getCount(TIME), -1);
    CHECK_EQ(value->getInt(0, TIME), 0);
    delete value;
}

TEST_CASE(mapChannelsAndTheirCursor) {
    MapChannelList list;
    MapChannel* channel = list.append();
    channel->number = 7;
    CHECK(channel->vertices.append({1, 2, 3}) && channel->vertices.append({4, 5, 6}));
    CHECK(channel->faces.append(1));
    Value* value = makeValue<MapChannels>(false, {"name", false}, static_cast<MapChannelList&&>(list));

    CHECK_EQ(static_cast<int>(value->getType(0, TIME)), 12);
    CHECK_EQ(value->getCount(TIME), 1);
    CHECK_EQ(value->getInt(0, TIME), 0);
    CHECK_EQ(value->openList(0), KUtils::ListHandle{1});
    CHECK_EQ(value->getCount(TIME), 3);
    CHECK_EQ(static_cast<int>(value->getType(-1, TIME)), 12);
    const int parts[] = {0, 4, 0, 10000};
    for (int i = 0; i < 4; ++i) CHECK_EQ(static_cast<int>(value->getType(i, TIME)), parts[i]);
    CHECK_EQ(value->getInt(5, TIME), 7);

    const int counts[] = {-1, 2, 1, 1};
    for (int part = 0; part < 4; ++part) {
        CHECK_EQ(value->openList(part), KUtils::ListHandle{2});
        CHECK_EQ(value->getCount(TIME), counts[part]);
        CHECK_EQ(static_cast<int>(value->getType(-1, TIME)), parts[part]);
        CHECK_EQ(value->getInt(0, TIME), 7);
        CHECK_EQ(value->getVectorList(TIME).count, part == 1 ? 2 : 0);
        CHECK_EQ(value->getIntList(TIME).count, part == 2 ? 1 : 0);
        CHECK_EQ(value->openList(0), KUtils::ListHandle{3});
        CHECK_EQ(value->getCount(TIME), 1);
        CHECK_EQ(value->getInt(0, TIME), 0);
        value->closeList(3);
        value->closeList(2);
    }
    value->closeList(1);
    CHECK_EQ(value->closeList(0), KUtils::ListHandle{-1});
    CHECK_EQ(value->getCount(TIME), 1);
    CHECK_EQ(value->openList(0), KUtils::ListHandle{0});
    delete value;
}

TEST_CASE(mixedListsAndTheirCursor) {
    ValueList inner;
    CHECK(inner.append(single<FloatKind>(0.5f)));
    ValueList list;
    CHECK(list.append(single<IntKind>(5)));
    CHECK(list.append(flat<VectorKind>({{1, 2, 3}})));
    CHECK(list.append(makeValue<MixedList>(true, {nullptr, false}, static_cast<ValueList&&>(inner))));
    CHECK(list.append(nullptr));
    CHECK(list.append(lists<IntKind>({{1, 2}}, -1)));
    Value* value = makeValue<MixedList>(false, {"name", false}, static_cast<ValueList&&>(list));

    CHECK_EQ(value->getCount(TIME), 5);
    const int types[] = {0, 4, 12, 10000, 12, 10000};
    for (int i = 0; i < 6; ++i) CHECK_EQ(static_cast<int>(value->getType(i, TIME)), types[i]);
    CHECK_EQ(static_cast<int>(value->getType(-1, TIME)), 12);
    CHECK_EQ(value->getInt(0, TIME), 5);
    CHECK_EQ(value->getVector(1, TIME).x, 0.0f);  // a list's elements are read when it is opened
    CHECK_EQ(value->openList(5), KUtils::ListHandle{0});
    CHECK_EQ(value->openList(-1), KUtils::ListHandle{0});
    value->closeList(0);
    CHECK_EQ(value->getCount(TIME), 5);

    CHECK_EQ(value->openList(0), KUtils::ListHandle{1});  // a single value stands for itself
    CHECK_EQ(value->getCount(TIME), -1);
    CHECK_EQ(static_cast<int>(value->getType(0, TIME)), 0);
    CHECK_EQ(value->getInt(3, TIME), 5);
    CHECK_EQ(value->openList(0), KUtils::ListHandle{0});
    value->closeList(0);
    CHECK_EQ(value->closeList(1), KUtils::ListHandle{0});

    value->openList(1);  // a flat list
    CHECK_EQ(value->getCount(TIME), 1);
    CHECK_EQ(value->getVectorList(TIME).data[0].y, 2.0f);
    CHECK_EQ(value->openList(0), KUtils::ListHandle{2});
    CHECK_EQ(value->getCount(TIME), -1);
    value->closeList(2);
    CHECK_EQ(value->getCount(TIME), 1);
    value->closeList(1);

    value->openList(2);  // a mixed list in the mixed list
    CHECK_EQ(value->getCount(TIME), 1);
    CHECK_EQ(static_cast<int>(value->getType(0, TIME)), 1);
    CHECK_EQ(value->openList(1), KUtils::ListHandle{0});
    CHECK_EQ(value->openList(0), KUtils::ListHandle{2});
    CHECK_EQ(value->getFloat(0, TIME), 0.5f);
    value->closeList(2);
    value->closeList(1);

    value->openList(3);  // nothing there
    CHECK_EQ(value->getCount(TIME), -1);
    CHECK_EQ(value->getInt(0, TIME), 0);
    value->closeList(1);

    value->openList(4);  // a list of lists
    CHECK_EQ(value->openList(0), KUtils::ListHandle{2});
    CHECK_EQ(value->getIntList(TIME).count, 2);
    CHECK_EQ(value->getInt(1, TIME), 2);
    value->closeList(2);
    value->closeList(1);
    CHECK_EQ(value->getCount(TIME), 5);
    delete value;
}
