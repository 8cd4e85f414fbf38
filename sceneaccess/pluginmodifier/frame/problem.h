// SceneAccessProblem: the one exception with which every operation of the module reports failure.
// Thrown where a problem arises, caught once at the border to Python (frame/method.h).
#pragma once

#include <cstdint>

#include "frame/compiler.h"

namespace KUtils::Python {

constexpr int PROBLEM_MESSAGE_SIZE = 1024;

struct SceneAccessProblem {
    char message[PROBLEM_MESSAGE_SIZE];  // at most 1023 characters
    std::int32_t warning;                // nonzero: the host prints it and the call returns None
};

// Formats into the module-wide buffer, cuts to 1023 characters and remembers the flag. Returns the buffer. No value
// may point into the buffer.
const char* formatProblem(std::int32_t warning, const char* format, ...) PRINTF_FORMAT(2, 3);

// Throws a copy of the module-wide buffer and flag.
[[noreturn]] void throwProblem();

// formatProblem, then throwProblem.
[[noreturn]] void throwError(const char* format, ...) PRINTF_FORMAT(1, 2);
[[noreturn]] void throwWarning(const char* format, ...) PRINTF_FORMAT(1, 2);

}  // namespace KUtils::Python
