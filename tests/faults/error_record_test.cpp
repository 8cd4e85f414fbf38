// Errors of the renderer's own kind for which there is no memory.
#include <initializer_list>

#include "check.h"
#include "host/error_text.h"
#include "test_allocator.h"

using namespace KUtils;
using namespace KUtils::Python;

TEST_CASE(anErrorWithoutMemoryGivesItsCauseBack) {
    test_allocator::reset();
    const auto before = test_allocator::counters().live;
    for (const bool isRefused : {true, false}) {
        ErrorRecord* cause = makeErrorRecord("inner", 2, nullptr, "%s", "the cause");
        CHECK(cause != nullptr);
        if (isRefused) test_allocator::refuse(1, false);
        const ErrorRef error(makeErrorRecord("outer", 1, cause, "%s", "the error"));
        CHECK_EQ(error == nullptr, isRefused);
        CHECK_EQ(test_allocator::counters().live - before, isRefused ? 0 : 2);
        char text[64];
        errorText(error.get(), text, sizeof text);
        CHECK_TEXT(text, isRefused ? "No error" : "[outer] the error | [inner] the cause");
    }
    CHECK_EQ(test_allocator::counters().live, before);
    CHECK_EQ(test_allocator::counters().wrongFrees, 0);
    test_allocator::reset();
}
