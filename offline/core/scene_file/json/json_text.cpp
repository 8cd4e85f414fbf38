#include "core/scene_file/json/json_text.h"

#include <climits>
#include <cstdio>
#include <cstring>

#include "core/scene_file/json/utf8.h"
#include "core/scene_file/numbers/numbers.h"

namespace Offline {
namespace {

constexpr std::size_t SHOWN_BYTES = 40;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

std::string byteName(char c) {
    char text[24];
    std::snprintf(text, sizeof text, "the byte 0x%02x", static_cast<unsigned char>(c));
    return text;
}

}  // namespace

std::string quoted(const std::string& text) {
    if (text.size() <= SHOWN_BYTES) return '"' + text + '"';
    std::size_t length = SHOWN_BYTES;
    while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xc0u) == 0x80u) --length;
    return '"' + text.substr(0, length) + "...\"";
}

void JsonText::skipBlanks() {
    while (at != limit && (*at == ' ' || *at == '\t' || *at == '\r' || *at == '\n')) ++at;
}

char JsonText::peek() {
    skipBlanks();
    return at != limit ? *at : '\0';
}

const char* JsonText::mark() {
    skipBlanks();
    return at;
}

bool JsonText::take(char c) {
    if (peek() != c || at == limit) return false;
    ++at;
    return true;
}

bool JsonText::takeWord(const char* word) {
    skipBlanks();
    const std::size_t length = std::strlen(word);
    if (static_cast<std::size_t>(limit - at) < length || std::memcmp(at, word, length) != 0) return false;
    place = at;
    at += length;
    return true;
}

bool JsonText::need(char c) {
    if (take(c)) return true;
    const char expected[] = {'"', c, '"', '\0'};
    return fail(expected);
}

bool JsonText::needEnd() {
    skipBlanks();
    return at == limit || fail("the end of the line");
}

bool JsonText::fail(const char* expected) {
    const char* where = mark();
    return failAt(where, std::string("expected ") + expected + ", found " + describeNext());
}

bool JsonText::failAt(const char* where, const std::string& message) {
    if (errorPlace != nullptr) return false;
    errorPlace = where;
    error = message;
    return false;
}

std::size_t JsonText::columnOf(const char* where) const {
    if (where < countedTo) {
        countedTo = start;
        countedColumn = 1;
    }
    for (; countedTo < where; ++countedTo)
        if ((static_cast<unsigned char>(*countedTo) & 0xc0u) != 0x80u) ++countedColumn;
    return countedColumn;
}

// Words for whatever stands at the cursor, which does not move.
std::string JsonText::describeNext() {
    if (at == limit) return "the end of the line";
    const char c = *at;
    if (c == '[') return "a list";
    if (c == '{') return "an object";
    if (c == '"') {
        const char* from = at + 1;
        const char* to = from;
        while (to != limit && *to != '"') to += *to == '\\' && to + 1 != limit ? 2 : 1;
        return quoted(std::string(from, to));
    }
    if (isDigit(c) || c == '-' || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
        const char* to = at;
        while (to != limit && std::strchr(",:]}[{\" \t\r\n", *to) == nullptr && *to > ' ' && to - at < 40) ++to;
        return std::string(at, to);
    }
    if (c > ' ' && c < 0x7f) return std::string("\"") + c + '"';
    return byteName(c);
}

bool JsonText::readHex(unsigned& unit) {
    unit = 0;
    for (int i = 0; i < 4; ++i) {
        const char c = at != limit ? *at : '\0';
        const char* digits = "0123456789abcdef";
        const char lower = c >= 'A' && c <= 'F' ? static_cast<char>(c - 'A' + 'a') : c;
        const char* digit = lower != '\0' ? std::strchr(digits, lower) : nullptr;
        if (digit == nullptr) return failAt(at, "expected four hexadecimal digits after \"\\u\"");
        unit = unit * 16 + static_cast<unsigned>(digit - digits);
        ++at;
    }
    return true;
}

// The backslash is taken already.
bool JsonText::readEscape(std::string& text) {
    const char* where = at - 1;
    const char c = at != limit ? *at : '\0';
    static const char from[] = "\"\\/bfnrt";
    static const char to[] = "\"\\/\b\f\n\r\t";
    const char* simple = c != '\0' ? std::strchr(from, c) : nullptr;
    if (simple != nullptr) {
        text += to[simple - from];
        ++at;
        return true;
    }
    if (c != 'u') return failAt(where, "a backslash in a text must stand before one of \"\\/bfnrtu");
    ++at;
    unsigned unit;
    if (!readHex(unit)) return false;
    unsigned long code = unit;
    if (unit >= 0xdc80 && unit <= 0xdcff) {
        text += static_cast<char>(unit & 0xffu);
        return true;
    }
    if (unit >= 0xd800 && unit <= 0xdbff && limit - at >= 2 && at[0] == '\\' && at[1] == 'u') {
        at += 2;
        unsigned low;
        if (!readHex(low)) return false;
        if (low >= 0xdc00 && low <= 0xdfff) code = 0x10000 + ((unit & 0x3fful) << 10) + (low & 0x3fful);
    }
    if (code >= 0xd800 && code <= 0xdfff) return failAt(where, "half a surrogate pair in a text");
    if (code == 0) return failAt(where, "a text cannot hold the character U+0000");
    appendUtf8(text, code);
    return true;
}

bool JsonText::readText(std::string& text, const char* expected) {
    if (peek() != '"' || at == limit) return fail(expected);
    text.clear();
    const char* begin = at;
    ++at;
    while (at != limit) {
        const char* plain = at;
        while (at != limit && *at >= ' ' && *at != '"' && *at != '\\') ++at;
        text.append(plain, at);
        if (at == limit) break;
        if (*at == '"') {
            ++at;
            place = begin;
            return true;
        }
        if (*at == '\\') {
            ++at;
            if (!readEscape(text)) return false;
            continue;
        }
        if (*at == '\0') return failAt(at, "the byte 0x00 cannot stand in a text");
        if (static_cast<unsigned char>(*at) < 0x20)
            return failAt(at, byteName(*at) + " in a text must be written with a backslash");
        const std::size_t length = utf8Length(at, limit);
        if (length == 0) return failAt(at, byteName(*at) + " in a text is not UTF-8");
        text.append(at, length);
        at += length;
    }
    return failAt(begin, "the text that begins here does not end");
}

bool JsonText::readNumber(const char*& digits, std::size_t& length, const char* expected) {
    const char* begin = mark();
    const char* to = begin;
    const auto takeDigits = [&] {
        const char* from = to;
        while (to != limit && isDigit(*to)) ++to;
        return to != from;
    };
    if (to != limit && *to == '-') ++to;
    const char* whole = to;
    if (!takeDigits() || (*whole == '0' && to - whole > 1)) return fail(expected);
    if (to != limit && *to == '.') {
        ++to;
        if (!takeDigits()) return fail(expected);
    }
    if (to != limit && (*to == 'e' || *to == 'E')) {
        ++to;
        if (to != limit && (*to == '+' || *to == '-')) ++to;
        if (!takeDigits()) return fail(expected);
    }
    place = at;
    digits = begin;
    length = static_cast<std::size_t>(to - begin);
    at = to;
    return true;
}

bool JsonText::readFloat(float& value, const char* expected) {
    const char* digits;
    std::size_t length;
    if (!readNumber(digits, length, expected)) return false;
    if (Offline::readFloat(digits, length, value)) return true;
    at = digits;
    return fail("a number that fits in 32 bits");
}

bool JsonText::readDouble(double& value, const char* expected) {
    const char* digits;
    std::size_t length;
    if (!readNumber(digits, length, expected)) return false;
    if (Offline::readDouble(digits, length, value)) return true;
    at = digits;
    return fail("a number that fits in 64 bits");
}

bool JsonText::readInt(int& value, const char* expected) {
    const char* digits;
    std::size_t length;
    if (!readNumber(digits, length, expected)) return false;
    const bool negative = *digits == '-';
    long long number = 0;
    bool fits = true;
    for (std::size_t i = negative ? 1 : 0; i < length; ++i) {
        if (!isDigit(digits[i])) {
            at = digits;
            return fail(expected);
        }
        if (number <= INT_MAX) number = number * 10 + (digits[i] - '0');
        fits = fits && number <= INT_MAX + static_cast<long long>(negative ? 1 : 0);
    }
    if (!fits) {
        at = digits;
        return fail("an integer from -2147483648 to 2147483647");
    }
    value = static_cast<int>(negative ? -number : number);
    return true;
}

bool JsonText::skipValue() {
    const char* begin = mark();
    std::size_t depth = 0;
    do {
        const char c = peek();
        if (at == limit)
            return at == begin ? fail("a value") : failAt(begin, "the value that begins here does not end");
        if (c == '"') {
            const char* text = at;
            for (++at; at != limit && *at != '"'; ++at)
                if (*at == '\\' && at + 1 != limit) ++at;
            if (at == limit) return failAt(text, "the text that begins here does not end");
            ++at;
        } else if (c == '[' || c == '{') {
            ++depth;
            ++at;
        } else if (c == ']' || c == '}') {
            if (depth == 0) return fail("a value");
            --depth;
            ++at;
        } else if (depth != 0 && (c == ',' || c == ':')) {
            ++at;
        } else {
            const char* from = at;
            while (at != limit && std::strchr(",:]}[{\" \t\r", *at) == nullptr) ++at;
            if (at == from) {
                if (*at != '\0') return fail("a value");
                ++at;
            }
        }
    } while (depth != 0);
    return true;
}

}  // namespace Offline
