#include "scene/search/match_wildcard.h"

namespace KUtils::Python {

namespace {

bool matchesByte(char pattern, char subject) { return pattern == subject || pattern == '?'; }

// What is left of the pattern matches the empty rest of the subject.
bool matchesEnd(const char* pattern) {
    while (*pattern == '*') ++pattern;
    return *pattern == 0;
}

}  // namespace

bool matchWildcard(const char* pattern, const char* subject) {
    for (; *subject != 0 && *pattern != '*'; ++pattern, ++subject) {
        if (!matchesByte(*pattern, *subject)) return false;
    }
    const char* resumePattern = nullptr;
    const char* resumeSubject = nullptr;
    while (*subject != 0) {
        if (*pattern == '*') {
            if (*++pattern == 0) return true;
            resumePattern = pattern;
            resumeSubject = subject + 1;
        } else if (matchesByte(*pattern, *subject)) {
            ++pattern;
            ++subject;
        } else {
            pattern = resumePattern;
            subject = resumeSubject++;
        }
    }
    return matchesEnd(pattern);
}

}  // namespace KUtils::Python
