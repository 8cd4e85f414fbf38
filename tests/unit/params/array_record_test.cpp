// The growable array record: the growth rule at its edges, counts, and what moves to a new block.
#include "params/base/array_record.h"

#include "check.h"
#include "helpers/value_classes.h"
#include "test_allocator.h"

using namespace value_classes;

namespace {

struct GrowthRow {
    const char* label;
    std::int64_t count;
    int capacity;
    int step;
    Growth growth;
    std::int64_t expected;
};

const GrowthRow growthRows[] = {
    {"one", 1, 0, 100, Growth::Stepped, 100},
    {"below a step", 99, 0, 100, Growth::Stepped, 100},
    {"a whole step gets one more", 100, 0, 100, Growth::Stepped, 200},
    {"above a step", 101, 100, 100, Growth::Stepped, 200},
    {"below two steps", 199, 100, 100, Growth::Stepped, 200},
    {"two steps get one more", 200, 100, 100, Growth::Stepped, 300},
    {"above two steps", 201, 200, 100, Growth::Stepped, 300},
    {"a step of one", 5, 0, 1, Growth::Stepped, 6},
    {"a step of seven", 13, 3, 7, Growth::Stepped, 14},
    {"exact", 100, 0, 100, Growth::Exact, 100},
    {"exact, one", 1, 0, 100, Growth::Exact, 1},
    {"exact beats the step", 201, 200, 100, Growth::Exact, 201},
    {"exact without a step", 17, 4, 0, Growth::Exact, 17},
    {"no step, no capacity", 17, 0, 0, Growth::Stepped, 17},
    {"no step: doubled", 17, 4, 0, Growth::Stepped, 32},
    {"no step: doubled from what is there", 17, 3, 0, Growth::Stepped, 24},
    {"no step: doubled to the count", 32, 4, 0, Growth::Stepped, 32},
    {"a negative step is none", 5, 4, -3, Growth::Stepped, 8},
    {"a negative capacity is none", 5, -4, 0, Growth::Stepped, 5},
    {"the largest count", INT32_MAX, 0, 100, Growth::Stepped, INT64_C(2147483700)},
    {"beyond the largest count", INT64_C(2147483648), 0, 1, Growth::Stepped, INT64_C(2147483649)},
    {"doubled beyond an int", INT64_C(2147483647), 1073741824, 0, Growth::Stepped, INT64_C(2147483648)},
};

template <class T>
void fillWith(ArrayRecord<T>& array, int from, int to) {
    for (int i = from; i < to; ++i) array.data[i] = static_cast<T>(i + 1);
}

}  // namespace

TEST_CASE(theGrowthRule) {
    for (const GrowthRow& row : growthRows) {
        CHECK_ROW(row.label);
        CHECK_EQ(static_cast<long long>(grownCapacity(row.count, row.capacity, row.step, row.growth)),
                 static_cast<long long>(row.expected));
    }
}

TEST_CASE(aSizeThatCannotBeCountedIsAskedForAndRefused) {
    for (const std::int64_t capacity : {INT64_C(2147483648), INT64_C(2147483700), INT64_C(1) << 62}) {
        const NothingLeft nothingLeft;
        CHECK(allocateElements(capacity, 4) == nullptr);
        CHECK_EQ(static_cast<long long>(test_allocator::counters().requests), 1LL);
        CHECK_EQ(static_cast<unsigned long long>(test_allocator::requestedSize(0)),
                 static_cast<unsigned long long>(SIZE_MAX));
    }
    // A count of elements that an int holds is never cut in its bytes.
    const NothingLeft nothingLeft;
    test_allocator::refuse(1, false);
    CHECK(allocateElements(INT32_MAX, 72) == nullptr);
    CHECK_EQ(static_cast<unsigned long long>(test_allocator::requestedSize(0)), 2147483647ull * 72ull);
}

TEST_CASE(appendsAllocateByTheStep) {
    const NothingLeft nothingLeft;
    ArrayRecord<std::int32_t> array;
    long long requests = 0;
    for (int n = 1; n <= 500; ++n) {
        int* place = array.append();
        CHECK(place != nullptr);
        *place = n;
        // Appends reach a full block at 100, 200, ...: the next one takes a step more.
        if (n % 100 == 1) ++requests;
        CHECK_EQ(static_cast<long long>(test_allocator::counters().requests), requests);
        CHECK_EQ(array.count, n);
        CHECK_EQ(array.capacity, static_cast<int>(requests) * 100);
    }
    for (int i = 0; i < 500; ++i) CHECK_EQ(array.data[i], i + 1);
    CHECK_EQ(static_cast<long long>(test_allocator::counters().liveBytes % 4), 0LL);
    array.release();
    CHECK_EQ(array.count, 0);
    CHECK_EQ(array.capacity, 0);
    CHECK(array.data == nullptr);
}

TEST_CASE(anExactCountThenAnAppend) {
    const NothingLeft nothingLeft;
    ArrayRecord<double> array;
    CHECK(array.resize(3, Growth::Exact));
    CHECK_EQ(array.capacity, 3);
    CHECK(array.append() != nullptr);
    CHECK_EQ(array.count, 4);
    CHECK_EQ(array.capacity, 100);
    array.release();
}

TEST_CASE(aCountInsideTheCapacityTouchesNothing) {
    const NothingLeft nothingLeft;
    ArrayRecord<std::int32_t> array;
    CHECK(array.resize(5, Growth::Exact));
    for (int i = 0; i < 5; ++i) CHECK_EQ(array.data[i], 0);
    fillWith(array, 0, 5);
    CHECK(array.resize(0, Growth::Exact));
    CHECK(array.resize(-7, Growth::Exact));
    CHECK_EQ(array.count, 0);
    CHECK(array.resize(5, Growth::Exact));
    for (int i = 0; i < 5; ++i) CHECK_EQ(array.data[i], i + 1);
    CHECK_EQ(static_cast<long long>(test_allocator::counters().requests), 1LL);
    // A new block takes over what is in use; what was left behind beyond the count does not come back.
    CHECK(array.resize(2, Growth::Exact));
    CHECK(array.resize(6, Growth::Exact));
    const int expected[] = {1, 2, 0, 0, 0, 0};
    for (int i = 0; i < 6; ++i) CHECK_EQ(array.data[i], expected[i]);
    array.release();
}

TEST_CASE(aRefusedGrowthChangesNothing) {
    const NothingLeft nothingLeft;
    ArrayRecord<std::int32_t> array;
    CHECK(array.resize(3, Growth::Exact));
    fillWith(array, 0, 3);
    const int* block = array.data;
    test_allocator::refuse(1, true);
    CHECK(!array.resize(4, Growth::Exact));
    CHECK(array.append() == nullptr);
    CHECK(!array.ensureCapacity(10));
    CHECK(array.ensureCapacity(3));
    CHECK(array.data == block);
    CHECK_EQ(array.count, 3);
    CHECK_EQ(array.capacity, 3);
    for (int i = 0; i < 3; ++i) CHECK_EQ(array.data[i], i + 1);
    array.release();
}

TEST_CASE(aListThatCannotGrowAnyFurtherStaysAsItIs) {
    const NothingLeft nothingLeft;
    // A record that says it is full to the last int; no element of it is touched.
    auto* only = static_cast<std::int32_t*>(kelmo_malloc(sizeof(std::int32_t)));
    ArrayRecord<std::int32_t> array;
    array.count = array.capacity = INT32_MAX;
    array.data = only;
    CHECK(array.append() == nullptr);
    CHECK_EQ(array.count, INT32_MAX);
    CHECK(array.data == only);
    CHECK_EQ(static_cast<unsigned long long>(test_allocator::requestedSize(1)),
             static_cast<unsigned long long>(SIZE_MAX));
    kelmo_free(only, sizeof *only);
}

TEST_CASE(elementsAreFoundOnlyInsideTheCount) {
    const NothingLeft nothingLeft;
    ArrayRecord<std::int32_t> array;
    CHECK(array.at(0) == nullptr);
    CHECK(array.resize(3, Growth::Exact));
    for (int index : {-1, 3, 4, INT32_MAX, INT32_MIN}) CHECK(array.at(index) == nullptr);
    CHECK(array.at(2) == array.data + 2);
    CHECK_EQ(array.view().count, 3);
    CHECK(array.view().data == array.data);
    CHECK(array.resize(0, Growth::Exact));
    CHECK(array.view().data == nullptr);
    array.release();
}
