#include "kelmo/core/allocator.h"

#include <cstdint>
#include <cstring>

#include "core/base/counters.h"
#include "core/core_api.h"
#include "support/check.h"

using namespace Offline;

TEST_CASE(blocksAreAlignedAndCounted) {
    const Counters before = counters;
    const std::size_t sizes[] = {0, 1, 15, 16, 17, 552, 100000};
    void* blocks[7];
    std::size_t bytes = 0;
    for (int i = 0; i < 7; ++i) {
        blocks[i] = kelmo_malloc(sizes[i]);
        CHECK(blocks[i] != nullptr);
        CHECK_EQ(reinterpret_cast<std::uintptr_t>(blocks[i]) % 16, std::uintptr_t{0});
        std::memset(blocks[i], 0x5a, sizes[i]);
        bytes += sizes[i];
    }
    CHECK_EQ(counters.allocations - before.allocations, std::uint64_t{7});
    CHECK_EQ(counters.liveBlocks - before.liveBlocks, std::uint64_t{7});
    CHECK_EQ(counters.liveBytes - before.liveBytes, std::uint64_t{bytes});
    CHECK(counters.peakBytes >= counters.liveBytes);
    for (int i = 0; i < 7; ++i) kelmo_free(blocks[i], sizes[i]);
    CHECK_EQ(counters.frees - before.frees, std::uint64_t{7});
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    CHECK_EQ(counters.liveBytes, before.liveBytes);
    CHECK_EQ(counters.wrongSizes, before.wrongSizes);
}

TEST_CASE(reallocKeepsTheContent) {
    const Counters before = counters;
    auto* text = static_cast<char*>(kelmo_realloc(nullptr, 4));
    std::memcpy(text, "abc", 4);
    text = static_cast<char*>(kelmo_realloc(text, 5000));
    CHECK_TEXT(text, "abc");
    CHECK_EQ(counters.liveBytes - before.liveBytes, std::uint64_t{5000});
    text = static_cast<char*>(kelmo_realloc(text, 3));
    CHECK_EQ(std::memcmp(text, "abc", 3), 0);
    CHECK_EQ(counters.allocations - before.allocations, std::uint64_t{1});
    CHECK_EQ(counters.reallocations - before.reallocations, std::uint64_t{2});
    kelmo_free(text, 3);
    CHECK_EQ(counters.liveBytes, before.liveBytes);
    CHECK_EQ(counters.wrongSizes, before.wrongSizes);
}

TEST_CASE(nullIsFreedAsNothing) {
    const Counters before = counters;
    kelmo_free(nullptr, 0);
    kelmo_free(nullptr, 32);
    CHECK_EQ(counters.frees, before.frees);
    CHECK_EQ(counters.foreignFrees, before.foreignFrees);
}

TEST_CASE(whatCannotBeHadIsNull) {
    const Counters before = counters;
    CHECK(kelmo_malloc(SIZE_MAX) == nullptr);
    CHECK(kelmo_malloc(SIZE_MAX - 8) == nullptr);
    void* block = kelmo_malloc(8);
    CHECK(kelmo_realloc(block, SIZE_MAX - 15) == nullptr);
    CHECK_EQ(counters.failedAllocations - before.failedAllocations, std::uint64_t{3});
    CHECK_EQ(counters.liveBytes - before.liveBytes, std::uint64_t{8});
    kelmo_free(block, 8);
}

TEST_CASE(wrongSizesAreReported) {
    struct Row {
        const char* label;
        std::size_t asked, given;
        std::uint64_t wrong;
    };
    const Row rows[] = {
        {"same", 32, 32, 0},   {"not known", 32, 0, 0}, {"smaller", 32, 24, 1},
        {"larger", 32, 33, 1}, {"of none", 0, 1, 1},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        const Counters before = counters;
        kelmo_free(kelmo_malloc(row.asked), row.given);
        CHECK_EQ(counters.wrongSizes - before.wrongSizes, row.wrong);
        CHECK_EQ(counters.liveBytes, before.liveBytes);
    }
    kelmo_free(kelmo_malloc(32), 24);
    CHECK_TEXT(lastMisuse(), "kelmo_free with the size 24 of a block of 32 bytes");
}

TEST_CASE(foreignBlocksAreLeftAlone) {
    const Counters before = counters;
    alignas(16) unsigned char foreign[64] = {};
    kelmo_free(foreign + 16, 0);
    CHECK_TEXT(lastMisuse(), "kelmo_free of a block that the allocator did not hand out, or that was freed");
    CHECK(kelmo_realloc(foreign + 16, 100) == nullptr);
    CHECK_TEXT(lastMisuse(), "kelmo_realloc of a block that the allocator did not hand out, or that was freed");
    CHECK_EQ(counters.foreignFrees - before.foreignFrees, std::uint64_t{2});
    CHECK_EQ(counters.frees, before.frees);
}

TEST_CASE(allocationsFailWhenToldTo) {
    struct Row {
        const char* label;
        std::uint64_t nth;
        bool persistent;
        const char* pattern;  // of five allocations; x: fails
    };
    const Row rows[] = {
        {"none", 0, false, "....."},
        {"the next", 1, false, "x...."},
        {"the third", 3, false, "..x.."},
        {"all from now", 1, true, "xxxxx"},
        {"all from the fourth", 4, true, "...xx"},
        {"none for ever", 0, true, "....."},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        const Counters before = counters;
        failAllocation(row.nth, row.persistent);
        char pattern[6] = "";
        for (int i = 0; i < 5; ++i) {
            void* block = i % 2 == 0 ? kelmo_malloc(8) : kelmo_realloc(nullptr, 8);
            pattern[i] = block != nullptr ? '.' : 'x';
            kelmo_free(block, 8);
        }
        failAllocation(0, false);
        CHECK_TEXT(pattern, row.pattern);
        CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    }
}

TEST_CASE(aFailedReallocKeepsTheBlock) {
    auto* text = static_cast<char*>(kelmo_malloc(4));
    std::memcpy(text, "abc", 4);
    failAllocation(1, false);
    CHECK(kelmo_realloc(text, 100) == nullptr);
    CHECK_TEXT(text, "abc");
    kelmo_free(text, 4);
}

TEST_CASE(countersHaveNames) {
    struct Row {
        const char* name;
        std::uint64_t Counters::*member;
    };
    const Row rows[] = {
        {"allocations", &Counters::allocations},
        {"reallocations", &Counters::reallocations},
        {"frees", &Counters::frees},
        {"failed_allocations", &Counters::failedAllocations},
        {"live_blocks", &Counters::liveBlocks},
        {"live_bytes", &Counters::liveBytes},
        {"peak_bytes", &Counters::peakBytes},
        {"wrong_sizes", &Counters::wrongSizes},
        {"foreign_frees", &Counters::foreignFrees},
        {"values_made", &Counters::valuesMade},
        {"values_freed", &Counters::valuesFreed},
        {"plugins_made", &Counters::pluginsMade},
        {"plugins_freed", &Counters::pluginsFreed},
        {"scenes_made", &Counters::scenesMade},
        {"scenes_freed", &Counters::scenesFreed},
        {"errors_made", &Counters::errorsMade},
        {"errors_freed", &Counters::errorsFreed},
        {"attached_parameters", &Counters::attachedParameters},
    };
    const Counters before = counters;
    std::uint64_t next = 1000;
    for (const Row& row : rows) counters.*row.member = next++;
    struct Seen {
        const Row* row;
        std::uint64_t value;
    } seen{rows, 1000};
    enumCounters(
        [](void* user, const char* name, std::uint64_t value) {
            Seen& expected = *static_cast<Seen*>(user);
            CHECK_TEXT(name, expected.row->name);
            CHECK_EQ(value, expected.value);
            ++expected.row;
            ++expected.value;
        },
        &seen);
    CHECK(seen.row == rows + 18);
    for (const Row& row : rows) {
        CHECK_ROW(row.name);
        CHECK_EQ(counter(row.name), counters.*row.member);
    }
    CHECK_EQ(counter("no such counter"), std::uint64_t{0});
    counters = before;
}
