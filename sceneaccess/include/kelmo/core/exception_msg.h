// The renderer core's general exception.
#pragma once

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "kelmo/core/export.h"

namespace KUtils {

// Holds a message of at most 1023 characters.
class KELMO_SHARED_TYPE ExceptionMsg {
  public:
    // Takes a printf format; a longer text is cut and always terminated.
    explicit ExceptionMsg(const char* format, ...) {
        std::va_list values;
        va_start(values, format);
        std::vsnprintf(message, sizeof message, format, values);
        va_end(values);
    }
    ExceptionMsg(const ExceptionMsg& other) { std::memcpy(message, other.message, sizeof message); }
    ExceptionMsg& operator=(const ExceptionMsg&) = delete;

    virtual ~ExceptionMsg() {}
    virtual const char* getMessage() const { return message; }

  private:
    char message[1024];
};

}  // namespace KUtils
