// Random walks over the generic list, each step compared with a plain model of its rules.
#include "generic_walk.h"

#include "check.h"
#include "helpers/random_steps.h"
#include "helpers/value_classes.h"
#include "test_allocator.h"

using namespace value_classes;

TEST_CASE(randomWalksOverTheGenericList) {
    const NothingLeft nothingLeft;
    for (std::uint32_t seed = 1; seed <= 60; ++seed) {
        RandomSteps random(seed, 1500);
        generic_walk::walk(random);
    }
}
