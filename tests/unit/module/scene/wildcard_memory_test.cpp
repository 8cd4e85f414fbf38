// Patterns for whose preparation there is no memory: the answers stay the same.
#include <new>
#include <string>

#include "check.h"
#include "scene/search/match_wildcard.h"
#include "scene/search/wildcard_pattern.h"

using KUtils::Python::matchWildcard;
using KUtils::Python::WildcardPattern;

namespace {

int granted = -1;  // how many blocks are still to be had; below zero: any number
int refusals = 0;

}  // namespace

// Stands in for the library's, which ends in the same operator.
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (granted == 0) {
        ++refusals;
        return nullptr;
    }
    if (granted > 0) --granted;
    return ::operator new[](size);
}

TEST_CASE(aPatternWithoutMemoryAnswersTheSame) {
    const std::string run(30, 'a');
    // Holds the run nowhere, and nearly so at every place.
    std::string adverse;
    for (int i = 0; i < 8; ++i) adverse += run.substr(1) + "b";
    const std::string subjects[] = {"", "mesh", "a mesh here", "the shape of a node@x", adverse, adverse + run, "ab"};
    const std::string patterns[] = {"*" + run + "*", "*" + run + "?*", "*mesh*", "*shape*node*", "*a*a*b", "a*b",
                                    "mesh"};
    for (const int blocks : {0, 1, 2}) {
        const int before = refusals;
        for (const std::string& pattern : patterns) {
            CHECK_ROW(pattern.c_str());
            granted = blocks;
            WildcardPattern prepared(pattern.c_str());
            for (const std::string& subject : subjects) {
                CHECK_EQ(prepared.matches(subject.c_str()), matchWildcard(pattern.c_str(), subject.c_str()));
            }
            granted = -1;
            // There is memory again.
            for (const std::string& subject : subjects) {
                CHECK_EQ(prepared.matches(subject.c_str()), matchWildcard(pattern.c_str(), subject.c_str()));
            }
        }
        CHECK_ROW(nullptr);
        // The first block holds the pieces, the second what an adverse subject calls for.
        CHECK_EQ(refusals > before, blocks < 2);
    }
}
