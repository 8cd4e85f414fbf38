#include "core/base/error_maker.h"

#include <cstring>
#include <string>

#include "catalogue/test_catalogue.h"
#include "core/base/counters.h"
#include "core/core_api.h"
#include "support/check.h"

using namespace Offline;

TEST_CASE(errorsAreChains) {
    const Counters before = counters;
    KUtils::ErrorRecord* cause = makeError("line 3", nullptr, "expected %d, found \"%s\"", 5, "x%dy");
    KUtils::ErrorRecord* error = makeError("a.kscene", cause, "cannot be read");
    CHECK_EQ(error->references, 1);
    CHECK_EQ(error->code, 0u);
    CHECK(error->cause == cause);
    CHECK_TEXT(textOf(error).c_str(), "[a.kscene] cannot be read | [line 3] expected 5, found \"x%dy\"");
    CHECK_EQ(counters.errorsMade - before.errorsMade, std::uint64_t{2});
    CHECK_EQ(counters.errorsFreed - before.errorsFreed, std::uint64_t{2});
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    CHECK_EQ(counters.wrongSizes, before.wrongSizes);
}

TEST_CASE(locationsAreCopied) {
    char location[] = "here";
    KUtils::ErrorRecord* error = makeError(location, nullptr, "x");
    location[0] = 'X';
    CHECK_TEXT(error->location, "here");
    KUtils::releaseError(error);
    CHECK_TEXT(textOf(makeError(nullptr, nullptr, "x")).c_str(), "x");
    CHECK_TEXT(textOf(makeError("", nullptr, "x")).c_str(), "[] x");
}

TEST_CASE(causesCanBeShared) {
    KUtils::ErrorRecord* cause = makeError(nullptr, nullptr, "cause");
    ++cause->references;
    CHECK_TEXT(textOf(makeError(nullptr, cause, "first")).c_str(), "first | cause");
    CHECK_EQ(cause->references, 1);
    CHECK_TEXT(textOf(cause).c_str(), "cause");
}

TEST_CASE(messagesAreCut) {
    const std::string text(2000, 'm');
    KUtils::ErrorRecord* error = makeError(nullptr, nullptr, "%s", text.c_str());
    CHECK_EQ(std::strlen(error->message), std::size_t{511});
    KUtils::releaseError(error);
    CHECK_TEXT(textOf(makeErrorText("l", nullptr, "100%s sure")).c_str(), "[l] 100%s sure");
}

TEST_CASE(withoutMemoryTheErrorSaysSo) {
    const Counters before = counters;
    KUtils::ErrorRecord* cause = makeError("x", nullptr, "cause");
    failAllocation(1, false);
    CHECK_TEXT(textOf(makeError("x", cause, "lost")).c_str(), "out of memory");
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    failAllocation(2, false);
    CHECK_TEXT(textOf(makeError("x", nullptr, "kept")).c_str(), "kept");
    failAllocation(0, false);
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
}
