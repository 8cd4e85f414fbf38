// A pattern, a line's end, and any number of subjects with a line's end between them. Both matchers answer as the
// textbook's table does, and neither takes more steps than it promises.
//
// A step is a function's entry: the matchers are compiled for this program with a call at each, so that the count is
// exact and the same on every machine. Each of them looks at a byte through a function of its own; those of the
// standard library count too, several for an element of the table.
#include <string>
#include <vector>

#include "input.h"
#include "scene/search/match_wildcard.h"
#include "scene/search/wildcard_pattern.h"

namespace {

std::size_t steps = 0;

// Entries that a match makes besides those that look at a byte.
constexpr std::size_t ENTRIES = 64;
// Entries for each byte of the subject, and for each byte of a prepared pattern: it is tried at eight places one by
// one.
constexpr std::size_t ENTRIES_OF_SUBJECT = 12;
constexpr std::size_t ENTRIES_OF_PATTERN = 12;
// Entries for each byte of the pattern when it is taken apart, and when the table for all places at once is made, which
// has a row for each value of a byte.
constexpr std::size_t ENTRIES_OF_PIECES = 16;
constexpr std::size_t ENTRIES_OF_TABLE = 2000;

// Row by row: whether the first bytes of the pattern match the first bytes of the subject.
bool matchesByTheBook(const std::string& pattern, const std::string& subject) {
    std::vector<char> row(subject.size() + 1, 0);
    row[0] = 1;
    for (const char wanted : pattern) {
        std::vector<char> next(subject.size() + 1, 0);
        next[0] = wanted == '*' && row[0];
        for (std::size_t i = 1; i <= subject.size(); ++i) {
            next[i] = wanted == '*' ? row[i] || next[i - 1] : row[i - 1] && (wanted == '?' || wanted == subject[i - 1]);
        }
        row.swap(next);
    }
    return row[subject.size()] != 0;
}

// The next line; texts end at a zero as names do.
std::string line(const std::string& text, std::size_t& from) {
    const std::size_t end = text.find('\n', from);
    const std::string found = text.substr(from, end == std::string::npos ? end : end - from);
    from = end == std::string::npos ? text.size() + 1 : end + 1;
    return found.substr(0, found.find('\0'));
}

}  // namespace

extern "C" void __cyg_profile_func_enter(void*, void*) { ++steps; }
extern "C" void __cyg_profile_func_exit(void*, void*) {}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    std::size_t from = 0;
    const std::string pattern = line(text, from);
    steps = 0;
    KUtils::Python::WildcardPattern prepared(pattern.c_str());
    REQUIRE(steps <= ENTRIES + ENTRIES_OF_PIECES * pattern.size());
    while (from <= text.size()) {
        const std::string subject = line(text, from);
        const bool expected = matchesByTheBook(pattern, subject);
        steps = 0;
        REQUIRE(KUtils::Python::matchWildcard(pattern.c_str(), subject.c_str()) == expected);
        REQUIRE(steps <= ENTRIES + (pattern.size() + 1) * (subject.size() + 1));
        // The first time the table may have to be made, the second time it is there.
        for (const std::size_t ofPattern : {ENTRIES_OF_TABLE, ENTRIES_OF_PATTERN}) {
            steps = 0;
            REQUIRE(prepared.matches(subject.c_str()) == expected);
            REQUIRE(steps <= ENTRIES + ENTRIES_OF_SUBJECT * subject.size() + ofPattern * pattern.size());
        }
    }
    return 0;
}
