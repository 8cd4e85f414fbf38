// Builds the line that the observer receives for one call.
//
//   if (isObserved()) CallLine("scene.findPlugin(").quoted(name).text(")");
//
// The line is reported when the object dies. Costs nothing but the question when nobody listens. The text lives in the
// library that builds it, so host and core can both use this header.
#pragma once

#include <cstdio>
#include <string>

#include "core/core_api.h"

namespace Offline {

class CallLine {
  public:
    explicit CallLine(const char* start) : line(start) {}
    ~CallLine() { reportCall(line.data(), line.size()); }
    CallLine(const CallLine&) = delete;
    CallLine& operator=(const CallLine&) = delete;

    CallLine& text(const char* text) {
        line += text;
        return *this;
    }

    // A text in double quotes, with quotes, backslashes and control characters escaped; null as `null`.
    CallLine& quoted(const char* text) {
        if (text == nullptr) {
            line += "null";
            return *this;
        }
        line += '"';
        for (; *text != '\0'; ++text) {
            const unsigned char c = static_cast<unsigned char>(*text);
            if (c == '"' || c == '\\') {
                line += '\\';
                line += *text;
            } else if (c < 0x20) {
                char escape[8];
                std::snprintf(escape, sizeof escape, "\\x%02x", c);
                line += escape;
            } else {
                line += *text;
            }
        }
        line += '"';
        return *this;
    }

    CallLine& number(long long value) {
        char digits[24];
        std::snprintf(digits, sizeof digits, "%lld", value);
        line += digits;
        return *this;
    }

  private:
    std::string line;
};

}  // namespace Offline
