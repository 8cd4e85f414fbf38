#include "frame/problem.h"

#include <cstring>
#include <string>
#include <type_traits>

#include "check.h"
#include "core/core_api.h"
#include "host/error_text.h"
#include "host/state.h"

using namespace KUtils::Python;

static_assert(sizeof(SceneAccessProblem) == 1028, "the message and the flag, nothing else");
static_assert(std::is_trivially_copyable<SceneAccessProblem>::value, "copied bytewise");

namespace {

SceneAccessProblem caught(void (*thrower)()) {
    try {
        thrower();
    } catch (const SceneAccessProblem& problem) {
        return problem;
    }
    SceneAccessProblem none = {};
    std::strcpy(none.message, "nothing was thrown");
    return none;
}

std::string render(const KUtils::ErrorRecord* record, std::size_t size) {
    std::string buffer(size + 1, '#');
    errorText(record, &buffer[0], size);
    CHECK_EQ(buffer[size], '#');
    return size == 0 ? "" : std::string(buffer.c_str());
}

}  // namespace

TEST_CASE(problemsCarryMessageAndFlag) {
    const SceneAccessProblem error = caught([] { throwError("%s is %d", "one", 1); });
    CHECK_TEXT(error.message, "one is 1");
    CHECK_EQ(error.warning, 0);
    const SceneAccessProblem warning = caught([] { throwWarning("careful"); });
    CHECK_TEXT(warning.message, "careful");
    CHECK_EQ(warning.warning, 1);
    const SceneAccessProblem flagged = caught([] {
        CHECK_TEXT(formatProblem(7, "a %s", "b"), "a b");
        throwProblem();
    });
    CHECK_TEXT(flagged.message, "a b");
    CHECK_EQ(flagged.warning, 7);
}

TEST_CASE(problemsAreCutTo1023Characters) {
    for (const int length : {1021, 1022, 1023, 1024, 5000}) {
        const std::string text(length, 'x');
        const char* message = formatProblem(0, "%s", text.c_str());
        CHECK_EQ(std::strlen(message), static_cast<std::size_t>(length < 1023 ? length : 1023));
    }
}

TEST_CASE(notInitialisedMessage) {
    CHECK(sceneAccessState == nullptr);
    const SceneAccessProblem problem = caught(ensureInitialized);
    CHECK_EQ(problem.warning, 0);
    CHECK_TEXT(
        problem.message,
        "The kelmo.pluginmodifier module wasn't initialized properly. One possible reason for this error is that "
        "you are trying to execute the script from the Script Editor. The script must be placed inside the "
        "special field that Kelmo provides for Python code (Render Settings / Kelmo Common / MEL/Python Callbacks "
        "/ Post Translate Python Script)");
}

TEST_CASE(errorTextOfAChain) {
    CHECK_TEXT(render(nullptr, 64).c_str(), "No error");
    KUtils::ErrorRecord* cause = makeErrorRecord(nullptr, 0, nullptr, "no place");
    KUtils::ErrorRecord* middle = makeErrorRecord("", 0, cause, "empty place");
    const ErrorRef first(makeErrorRecord("loadLib", 5, middle, "LoadLibrary failed (%i): %s", 5, "denied\r\n"));
    const std::string whole = "[loadLib] LoadLibrary failed (5): denied\r\n | [] empty place | no place";
    CHECK_TEXT(render(first.get(), 1024).c_str(), whole.c_str());
    for (std::size_t size = 1; size <= whole.size() + 1; ++size) {
        CHECK_TEXT(render(first.get(), size).c_str(), whole.substr(0, size - 1).c_str());
    }
    render(first.get(), 0);
}

TEST_CASE(errorMessagesAreCutTo511Characters) {
    const std::string text(600, 'y');
    const ErrorRef record(makeErrorRecord(nullptr, 0, nullptr, "%s", text.c_str()));
    CHECK_EQ(std::strlen(record->message), std::size_t{511});
}

// A record owns its reference to the cause: also one that others hold, and when it could not be made itself.
TEST_CASE(errorRecordsReleaseTheirCauses) {
    const std::uint64_t before = Offline::counter("live_blocks");
    for (int refused = 0; refused <= 3; ++refused) {
        Offline::failAllocation(static_cast<std::uint64_t>(refused), false);
        KUtils::ErrorRecord* cause = makeErrorRecord("first", 1, nullptr, "one");
        KUtils::ErrorRecord* shared = cause;
        if (shared != nullptr) ++shared->references;
        KUtils::ErrorRecord* middle = makeErrorRecord("second", 2, cause, "two");
        KUtils::ErrorRecord* outermost = makeErrorRecord("third", 3, middle, "three");
        Offline::failAllocation(0, false);
        CHECK_EQ(outermost == nullptr, refused == 3);
        const char* chains[] = {"[third] three | [second] two | [first] one", "[third] three | [second] two",
                                "[third] three", "No error"};
        CHECK_TEXT(render(outermost, 1024).c_str(), chains[refused]);
        KUtils::releaseError(outermost);
        CHECK_TEXT(render(shared, 1024).c_str(), refused == 1 ? "No error" : "[first] one");
        KUtils::releaseError(shared);
        CHECK_EQ(Offline::counter("live_blocks"), before);
    }
}
