// A walk with the cursor over lists of lists, map channels or the generic list, compared with a plain model at each
// step. The first byte chooses the class; nothing is left in the heap afterwards.
#include "check.h"
#include "generic/generic_walk.h"
#include "input.h"
#include "nested/nested_walk.h"
#include "test_allocator.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::int64_t live = test_allocator::counters().live;
    const int choice = input.below(value_classes::listOfListsCount + 2);
    if (choice < value_classes::listOfListsCount) {
        nested_walk::walkLists(value_classes::listsOfLists[choice], input);
    } else if (choice == value_classes::listOfListsCount) {
        nested_walk::walkChannels(input);
    } else {
        generic_walk::walk(input);
    }
    std::fflush(stdout);
    REQUIRE(check::failures() == 0);
    REQUIRE(test_allocator::counters().live == live && test_allocator::counters().wrongFrees == 0);
    return 0;
}
