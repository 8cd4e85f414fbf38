// Texts of others in messages, long ones above all: whatever stands in them, per-cent signs too, arrives as it is, cut
// at the size of the message. The first bytes choose lengths about the limits.
#include <cstring>
#include <string>

#include "core/base/error_maker.h"
#include "frame/problem.h"
#include "host/error_text.h"
#include "input.h"

using KUtils::ErrorRecord;
using KUtils::Python::ErrorRef;

namespace {

constexpr std::size_t LONGEST_PROBLEM = KUtils::Python::PROBLEM_MESSAGE_SIZE - 1;
constexpr std::size_t LONGEST_RECORD = sizeof(ErrorRecord::message) - 1;
constexpr int ABOUT = 3;

// A length about a limit, or 0: as the text is.
std::size_t chooseLength(fuzz::Input& input) {
    static const int limits[] = {0, static_cast<int>(LONGEST_RECORD), static_cast<int>(LONGEST_PROBLEM)};
    const int limit = limits[input.below(3)];
    return static_cast<std::size_t>(limit == 0 ? 0 : limit + input.between(-ABOUT, ABOUT));
}

// The text repeated or cut to this length.
std::string ofLength(const std::string& text, std::size_t length) {
    if (length == 0) return text;
    std::string result;
    while (result.size() < length) result += text.empty() ? "x" : text;
    return result.substr(0, length);
}

bool isCut(const char* message, const std::string& text, std::size_t longest) {
    return message == text.substr(0, longest);
}

void checkProblem(const std::string& text, bool isWarning) {
    bool thrown = false;
    try {
        if (isWarning) KUtils::Python::throwWarning("%s", text.c_str());
        KUtils::Python::throwError("%s", text.c_str());
    } catch (const KUtils::Python::SceneAccessProblem& problem) {
        thrown = true;
        REQUIRE(isCut(problem.message, text, LONGEST_PROBLEM));
        REQUIRE((problem.warning != 0) == isWarning);
    }
    REQUIRE(thrown);
    const std::string framed = "The plugin \"" + text + "\" doesn't exist.";
    REQUIRE(isCut(KUtils::Python::formatProblem(0, "The plugin \"%s\" doesn't exist.", text.c_str()), framed,
                  LONGEST_PROBLEM));
}

// A chain of up to eight records, made by the module and by the core, and what it reads as.
void checkChain(fuzz::Input& input, const std::string& text, const std::string& location) {
    std::string expected = "No error";
    ErrorRecord* chain = nullptr;
    for (int depth = input.below(8); depth > 0; --depth) {
        const bool ofCore = input.below(2) == 0;
        const char* place = input.below(2) == 0 ? nullptr : location.c_str();
        const std::string own = std::to_string(depth) + text;
        std::string shown = place == nullptr ? "" : "[" + location + "] ";
        shown += own.substr(0, LONGEST_RECORD);
        expected = chain == nullptr ? shown : shown + " | " + expected;
        chain = ofCore ? Offline::makeError(place, chain, "%s", own.c_str())
                       : KUtils::Python::makeErrorRecord(place, 0, chain, "%s", own.c_str());
    }
    const ErrorRef owner(chain);
    const std::size_t room = 1 + static_cast<std::size_t>(input.below(2 * KUtils::Python::PROBLEM_MESSAGE_SIZE));
    const std::unique_ptr<char[]> buffer(new char[room]);
    KUtils::Python::errorText(chain, buffer.get(), room);
    REQUIRE(isCut(buffer.get(), expected, room - 1));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::size_t length = chooseLength(input);
    const bool isWarning = input.below(2) == 1;
    fuzz::Input chain = input;
    const std::string text = ofLength(input.rest().c_str(), length);
    checkProblem(text, isWarning);
    checkChain(chain, text, text.substr(0, 40));
    return 0;
}
