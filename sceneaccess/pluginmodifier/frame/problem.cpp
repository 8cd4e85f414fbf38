#include "frame/problem.h"

#include <cstdarg>
#include <cstdio>

namespace KUtils::Python {

namespace {

// One block, shared by all calls: the thrown record is a bytewise copy of it.
SceneAccessProblem buffer;

const char* formatValues(std::int32_t warning, const char* format, std::va_list values) {
    std::vsnprintf(buffer.message, sizeof buffer.message, format, values);
    buffer.warning = warning;
    return buffer.message;
}

}  // namespace

const char* formatProblem(std::int32_t warning, const char* format, ...) {
    std::va_list values;
    va_start(values, format);
    const char* message = formatValues(warning, format, values);
    va_end(values);
    return message;
}

void throwProblem() { throw SceneAccessProblem(buffer); }

void throwError(const char* format, ...) {
    std::va_list values;
    va_start(values, format);
    formatValues(0, format, values);
    va_end(values);
    throwProblem();
}

void throwWarning(const char* format, ...) {
    std::va_list values;
    va_start(values, format);
    formatValues(1, format, values);
    va_end(values);
    throwProblem();
}

}  // namespace KUtils::Python
