#include "scene/search/wildcard_pattern.h"

#include <cstdint>
#include <string>

#include "check.h"
#include "scene/search/match_wildcard.h"

using KUtils::Python::matchWildcard;
using KUtils::Python::WildcardPattern;

namespace {

class Random {
  public:
    std::uint32_t below(std::uint32_t bound) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<std::uint32_t>(state >> 33) % bound;
    }
    std::string text(std::uint32_t length, const char* letters, std::uint32_t letterCount) {
        std::string result;
        for (std::uint32_t i = 0; i < length; ++i) result += letters[below(letterCount)];
        return result;
    }

  private:
    std::uint64_t state = 1;
};

std::string repeated(const std::string& text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) result += text;
    return result;
}

}  // namespace

// One pattern serves many subjects: what a subject leaves behind must not reach the next one.
TEST_CASE(preparedPatternServesManySubjects) {
    Random random;
    int matched = 0;
    for (int round = 0; round < 3000; ++round) {
        const std::string pattern = random.text(random.below(12), "ab?**", 5);
        WildcardPattern prepared(pattern.c_str());
        for (int i = 0; i < 20; ++i) {
            const std::string subject = random.text(random.below(30), "ab", 2);
            const bool expected = matchWildcard(pattern.c_str(), subject.c_str());
            CHECK_ROW(pattern.c_str());
            CHECK_EQ(prepared.matches(subject.c_str()), expected);
            matched += expected ? 1 : 0;
        }
    }
    CHECK(matched > 5000);
}

// Pieces around the sizes of one and two machine words, cut out of the subject and then often spoilt at one byte.
TEST_CASE(preparedPatternFindsLongPieces) {
    Random random;
    int matched = 0;
    const int lengths[] = {1, 2, 31, 62, 63, 64, 65, 66, 100, 127, 128, 129, 130, 200};
    for (int round = 0; round < 20000; ++round) {
        // Mostly one letter, so that many places look right at first.
        const std::string subject = random.text(220 + random.below(40), "aaaaaaab", 8);
        const auto length = static_cast<std::uint32_t>(lengths[random.below(sizeof lengths / sizeof *lengths)]);
        const std::uint32_t start = random.below(static_cast<std::uint32_t>(subject.size()) - length + 1);
        std::string piece = subject.substr(start, length);
        for (std::uint32_t spoilt = random.below(3); spoilt > 0; --spoilt)
            piece[random.below(length)] = "ab?*"[random.below(4)];
        const std::string pattern = (random.below(4) > 0 ? "*" : "") + piece + (random.below(4) > 0 ? "*" : "") +
                                    (random.below(4) == 0 ? "a" : "");
        const bool expected = matchWildcard(pattern.c_str(), subject.c_str());
        CHECK_ROW(pattern.c_str());
        CHECK_EQ(WildcardPattern(pattern.c_str()).matches(subject.c_str()), expected);
        matched += expected ? 1 : 0;
    }
    CHECK(matched > 2000);
    CHECK(matched < 18000);
}

TEST_CASE(preparedPatternTable) {
    const std::string run = repeated("a", 200);
    const std::string runs = repeated(repeated("a", 29) + "b", 8);
    const struct {
        const char* label;
        std::string pattern;
        std::string subject;
        bool matches;
    } rows[] = {
        {"late byte, absent", "*" + repeated("a", 120) + "b", run, false},
        {"late byte, at the end", "*" + repeated("a", 120) + "b", run + "b", true},
        {"a piece of one word among its likes", "*" + repeated("a", 30) + "*", runs, false},
        {"a piece of one word, at last", "*" + repeated("a", 30) + "*", runs + repeated("a", 30), true},
        {"a piece of two words among its likes", "*" + repeated("a", 29) + "?" + repeated("a", 70) + "*", runs, false},
        {"a piece of many words, found late", "*" + repeated("a?", 60) + "*", runs + repeated("ab", 60), true},
        {"only any bytes between stars", "*" + repeated("?", 100) + "*", repeated("x", 99), false},
        {"only any bytes between stars, enough", "*" + repeated("?", 100) + "*", repeated("x", 100), true},
        {"head and tail do not share bytes", "aba*aba", "ababa", false},
        {"head and tail side by side", "aba*aba", "abaaba", true},
        {"a piece does not share bytes with the tail", "*ab*b", "ab", false},
        {"bytes above 127", "*\xc3\xa9*\xff", "caf\xc3\xa9\xff", true},
        {"stars only", "***", "", true},
        {"an empty pattern", "", "", true},
    };
    for (const auto& row : rows) {
        CHECK_ROW(row.label);
        CHECK_EQ(WildcardPattern(row.pattern.c_str()).matches(row.subject.c_str()), row.matches);
        CHECK_EQ(matchWildcard(row.pattern.c_str(), row.subject.c_str()), row.matches);
    }
}
