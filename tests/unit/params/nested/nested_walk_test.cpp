// Random walks over lists of lists and map channels, each step compared with a plain model.
#include "nested_walk.h"

#include "check.h"
#include "helpers/random_steps.h"
#include "helpers/value_classes.h"
#include "test_allocator.h"

using namespace value_classes;

TEST_CASE(randomWalksOverListsOfLists) {
    const NothingLeft nothingLeft;
    for (const NestedClass& row : listsOfLists) {
        CHECK_ROW(row.label);
        for (std::uint32_t seed = 1; seed <= 20; ++seed) {
            RandomSteps random(seed, 3000);
            nested_walk::walkLists(row, random);
        }
    }
}

TEST_CASE(randomWalksOverMapChannels) {
    const NothingLeft nothingLeft;
    for (std::uint32_t seed = 1; seed <= 40; ++seed) {
        RandomSteps random(seed, 3000);
        nested_walk::walkChannels(random);
    }
}
