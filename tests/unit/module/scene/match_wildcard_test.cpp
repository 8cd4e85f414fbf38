#include "scene/search/match_wildcard.h"

#include <cstdint>

#include "check.h"
#include "scene/search/wildcard_pattern.h"

using KUtils::Python::matchWildcard;
using KUtils::Python::WildcardPattern;

namespace {

struct Row {
    const char* pattern;
    const char* subject;
    bool matches;
};

// The definition, without a thought for time.
bool matchesByRecursion(const char* pattern, const char* subject) {
    if (*pattern == 0) return *subject == 0;
    if (*pattern == '*')
        return matchesByRecursion(pattern + 1, subject) || (*subject != 0 && matchesByRecursion(pattern, subject + 1));
    return *subject != 0 && (*pattern == '?' || *pattern == *subject) && matchesByRecursion(pattern + 1, subject + 1);
}

}  // namespace

TEST_CASE(wildcardTable) {
    const Row rows[] = {
        {"*", "", true},
        {"*", "anything", true},
        {"", "", true},
        {"", "a", false},
        {"?", "", false},
        {"Geom*", "GeomStaticMesh", true},
        {"Geom*", "geomStaticMesh", false},
        {"Geom*", "Geom", true},
        {"a?c", "abc", true},
        {"a?c", "ac", false},
        {"a?c", "abbc", false},
        {"*mesh", "mymesh", true},
        {"*mesh", "mesh", true},
        {"*mesh", "mesh1", false},
        {"mesh*", "mesh", true},
        {"mesh*", "mesh1", true},
        {"mesh*", "mymesh", false},
        {"a*b*c", "aXbYc", true},
        {"a*b*c", "abc", true},
        {"a*b*c", "acb", false},
        {"ab**", "ab", true},
        {"ab**", "abc", true},
        {"abc?", "abc", false},
        {"abc?", "abcd", true},
        {"**", "", true},
        {"*?", "", false},
        {"*?", "a", true},
        {"*a", "ba", true},
        {"*ab", "aab", true},
        {"*aab", "aaab", true},
        {"a*", "", false},
        {"\\*", "*", false},
        {"[a]", "a", false},
        {"?", "\xc3\xa9", false},  // one byte, not one character
        {"??", "\xc3\xa9", true},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.pattern);
        CHECK_EQ(matchWildcard(row.pattern, row.subject), row.matches);
        CHECK_EQ(WildcardPattern(row.pattern).matches(row.subject), row.matches);
        CHECK_EQ(matchesByRecursion(row.pattern, row.subject), row.matches);
    }
}

TEST_CASE(wildcardAgreesWithItsDefinition) {
    // Short texts over two letters meet every branch of the scan.
    std::uint32_t state = 1;
    const auto next = [&state](std::uint32_t bound) {
        state = state * 1664525u + 1013904223u;
        return (state >> 16) % bound;
    };
    int matched = 0;
    for (int round = 0; round < 200000; ++round) {
        char pattern[9] = {};
        char subject[11] = {};
        const std::uint32_t patternLength = next(8);
        const std::uint32_t subjectLength = next(10);
        for (std::uint32_t i = 0; i < patternLength; ++i) pattern[i] = "ab?*"[next(4)];
        for (std::uint32_t i = 0; i < subjectLength; ++i) subject[i] = "ab"[next(2)];
        const bool expected = matchesByRecursion(pattern, subject);
        CHECK_ROW(pattern);
        CHECK_EQ(matchWildcard(pattern, subject), expected);
        CHECK_EQ(WildcardPattern(pattern).matches(subject), expected);
        matched += expected ? 1 : 0;
    }
    CHECK(matched > 10000);
}
