#include "core/scene_file/json/json_writer.h"

#include <cmath>
#include <cstdio>
#include <cstring>

#include "core/scene_file/json/utf8.h"
#include "core/scene_file/numbers/numbers.h"

namespace Offline {
namespace {

template <class Float>
bool appendSpecial(std::string& out, Float value) {
    if (std::isfinite(value)) return false;
    out += std::isnan(value) ? "\"nan\"" : value > 0 ? "\"inf\"" : "\"-inf\"";
    return true;
}

void appendControl(std::string& out, char c) {
    static const char from[] = "\b\f\n\r\t\"\\";
    static const char to[] = "bfnrt\"\\";
    out += '\\';
    const char* known = std::strchr(from, c);
    if (known != nullptr) {
        out += to[known - from];
        return;
    }
    char escape[8];
    std::snprintf(escape, sizeof escape, "u%04x", static_cast<unsigned char>(c));
    out += escape;
}

}  // namespace

void appendText(std::string& out, const char* text) {
    const char* end = text + std::strlen(text);
    out += '"';
    while (text != end) {
        const auto byte = static_cast<unsigned char>(*text);
        if (byte < 0x20 || byte == '"' || byte == '\\') {
            appendControl(out, *text++);
            continue;
        }
        const std::size_t length = utf8Length(text, end);
        if (length != 0) {
            out.append(text, length);
            text += length;
            continue;
        }
        char escape[8];
        std::snprintf(escape, sizeof escape, "\\udc%02x", byte);
        out += escape;
        ++text;
    }
    out += '"';
}

void appendNumber(std::string& out, float value) {
    char digits[NUMBER_TEXT_BYTES];
    if (!appendSpecial(out, value)) out.append(digits, writeFloat(digits, value));
}

void appendNumber(std::string& out, double value) {
    char digits[NUMBER_TEXT_BYTES];
    if (!appendSpecial(out, value)) out.append(digits, writeDouble(digits, value));
}

void appendNumber(std::string& out, int value) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%d", value);
    out += digits;
}

}  // namespace Offline
