#include "host/text_conversion.h"

#include <cstdint>
#include <cstring>

#include "check.h"

using KUtils::Python::utf16ToUtf8;
using KUtils::Python::utf8ToUtf16;

namespace {

struct Row {
    const char* label;
    const char* bytes;
    char16_t units[12];
};

std::size_t length(const char16_t* units) {
    std::size_t count = 0;
    while (units[count] != 0) ++count;
    return count;
}

bool same(const char16_t* a, const char16_t* b, std::size_t count) { return std::memcmp(a, b, count * sizeof *a) == 0; }

// A byte that stands for itself.
#define ESCAPED(byte) 0xDBC0, static_cast<char16_t>(0xDC00 + (byte))

const Row rows[] = {
    {"ascii", "a~\x01", {'a', '~', 1}},
    {"two bytes", "\xc3\xa9", {0xE9}},
    {"smallest of two", "\xc2\x80", {0x80}},
    {"overlong of two", "\xc1\xbf", {ESCAPED(0xC1), ESCAPED(0xBF)}},
    {"overlong zero", "\xc0\x80", {ESCAPED(0xC0), ESCAPED(0x80)}},
    {"three bytes", "\xe6\xbc\xa2", {0x6F22}},
    {"smallest of three", "\xe0\xa0\x80", {0x800}},
    {"overlong of three", "\xe0\x9f\xbf", {ESCAPED(0xE0), ESCAPED(0x9F), ESCAPED(0xBF)}},
    {"encoded surrogate", "\xed\xa0\x80", {0xD800}},
    {"four bytes", "\xf0\x9f\x8e\xa8", {0xD83C, 0xDFA8}},
    {"smallest of four", "\xf0\x90\x80\x80", {0xD800, 0xDC00}},
    {"overlong of four", "\xf0\x8f\xbf\xbf", {ESCAPED(0xF0), ESCAPED(0x8F), ESCAPED(0xBF), ESCAPED(0xBF)}},
    {"last below the escapes", "\xf3\xbf\xbf\xbf", {0xDBBF, 0xDFFF}},
    {"first escape, encoded", "\xf4\x80\x80\x80", {ESCAPED(0xF4), ESCAPED(0x80), ESCAPED(0x80), ESCAPED(0x80)}},
    {"last escape, encoded", "\xf4\x80\x83\xbf", {ESCAPED(0xF4), ESCAPED(0x80), ESCAPED(0x83), ESCAPED(0xBF)}},
    {"first above the escapes", "\xf4\x80\x84\x80", {0xDBC0, 0xDD00}},
    {"last code point", "\xf4\x8f\xbf\xbf", {0xDBFF, 0xDFFF}},
    {"beyond the last", "\xf4\x90\x80\x80", {ESCAPED(0xF4), ESCAPED(0x90), ESCAPED(0x80), ESCAPED(0x80)}},
    {"five bytes", "\xf8\x80\x80\x80\x80", {ESCAPED(0xF8), ESCAPED(0x80), ESCAPED(0x80), ESCAPED(0x80), ESCAPED(0x80)}},
    {"fe and ff", "\xfe\xff", {ESCAPED(0xFE), ESCAPED(0xFF)}},
    {"stray continuation", "a\x80z", {'a', ESCAPED(0x80), 'z'}},
    {"stray continuation after two", "\xc3\xa9\x80", {0xE9, ESCAPED(0x80)}},
    {"stray continuation after three", "\xe6\xbc\xa2\xbf", {0x6F22, ESCAPED(0xBF)}},
    {"stray continuation after four", "\xf0\x9f\x8e\xa8\x80", {0xD83C, 0xDFA8, ESCAPED(0x80)}},
    {"missing continuation", "\xc3", {ESCAPED(0xC3)}},
    {"cut short", "\xe6\xbc", {ESCAPED(0xE6), ESCAPED(0xBC)}},
    {"malformed continuation starts anew", "\xe6\xbcz", {ESCAPED(0xE6), ESCAPED(0xBC), 'z'}},
    {"malformed continuation is a lead", "\xe6\xc3\xa9", {ESCAPED(0xE6), 0xE9}},
};

}  // namespace

TEST_CASE(utf8ToUtf16Table) {
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        char16_t units[32];
        const std::size_t count = utf8ToUtf16(row.bytes, units, 32);
        CHECK_EQ(count, length(row.units));
        CHECK(same(units, row.units, count + 1));
        CHECK_EQ(utf8ToUtf16(row.bytes, nullptr, 0), count);
    }
}

TEST_CASE(utf16ToUtf8GivesTheBytesBack) {
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        char bytes[32];
        const std::size_t count = utf16ToUtf8(row.units, bytes, 32);
        CHECK_EQ(count, std::strlen(row.bytes));
        CHECK_TEXT(bytes, row.bytes);
        CHECK_EQ(utf16ToUtf8(row.units, nullptr, 0), count);
    }
}

TEST_CASE(unpairedSurrogatesStandForThemselves) {
    const char16_t units[] = {0xDC00, 'a', 0xD800, 0xD800, 0xDC00, 0xDBFF, 0xE000, 0};
    char bytes[32];
    utf16ToUtf8(units, bytes, 32);
    CHECK_TEXT(bytes,
               "\xed\xb0\x80"
               "a"
               "\xed\xa0\x80"
               "\xf0\x90\x80\x80"
               "\xed\xaf\xbf"
               "\xee\x80\x80");
}

TEST_CASE(conversionStopsBeforeItsCapacity) {
    char16_t units[8];
    units[2] = 0x7777;
    CHECK_EQ(utf8ToUtf16("a\xf0\x9f\x8e\xa8", units, 2), std::size_t{1});  // no half of a pair
    CHECK_EQ(static_cast<int>(units[1]), 0);
    CHECK_EQ(static_cast<int>(units[2]), 0x7777);
    CHECK_EQ(utf8ToUtf16("abc", units, 3), std::size_t{3});
    CHECK_EQ(static_cast<int>(units[2]), 'c');  // no room for a terminator
    CHECK_EQ(utf8ToUtf16("abc", units, 0), std::size_t{0});
    // Of bytes that stand for themselves, too, those that fit.
    units[2] = units[3] = 0x7777;
    CHECK_EQ(utf8ToUtf16("\xe6\xbcz", units, 3), std::size_t{2});
    CHECK(units[0] == 0xDBC0 && units[1] == 0xDC00 + 0xE6);
    CHECK_EQ(static_cast<int>(units[2]), 0);
    CHECK_EQ(static_cast<int>(units[3]), 0x7777);

    char bytes[8];
    const char16_t text[] = {'a', 0x6F22, 'b', 0};
    bytes[3] = 'x';
    CHECK_EQ(utf16ToUtf8(text, bytes, 3), std::size_t{1});  // no part of a form
    CHECK_EQ(static_cast<int>(bytes[1]), 0);
    CHECK_EQ(static_cast<int>(bytes[3]), 'x');
    CHECK_EQ(utf16ToUtf8(text, bytes, 4), std::size_t{4});
}

TEST_CASE(anyBytesComeBackButEncodedSurrogatePairs) {
    const char16_t pair[] = {0xD800, 0xDC00, 0};
    char joined[8];
    utf16ToUtf8(pair, joined, 8);
    CHECK_TEXT(joined, "\xf0\x90\x80\x80");
    char16_t units[64];
    CHECK_EQ(utf8ToUtf16("\xed\xaf\x80\xed\xb2\x80", units, 64), std::size_t{2});
    char back[64];
    CHECK_EQ(utf16ToUtf8(units, back, 64), std::size_t{1});
    CHECK_TEXT(back, "\x80");

    std::uint32_t state = 7;
    for (int round = 0; round < 100000; ++round) {
        char text[17] = {};
        for (int i = 0; i < 16; ++i) {
            state = state * 1664525u + 1013904223u;
            const std::uint32_t pick = state >> 24;
            // Mostly what makes and breaks sequences; no 0xED, which begins encoded surrogates.
            text[i] = static_cast<char>(pick < 96 ? 0x80 + pick % 64 : pick < 0xC0 ? 0xC0 + pick % 64 : pick % 127 + 1);
            if (static_cast<unsigned char>(text[i]) == 0xED) text[i] = 'x';
        }
        utf8ToUtf16(text, units, 64);
        utf16ToUtf8(units, back, 64);
        CHECK_TEXT(back, text);
    }
}
