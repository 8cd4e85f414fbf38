#include "host/report/json_object.h"

#include <cstring>

#include "support/check.h"

TEST_CASE(textsAreEscapedLosslessly) {
    struct Row {
        const char* label;
        const char* text;
        const char* json;
    };
    const Row rows[] = {
        {"empty", "", R"("")"},
        {"plain", "a b", R"("a b")"},
        {"quote and backslash", "a\"b\\c", R"("a\"b\\c")"},
        {"named controls", "\b\f\n\r\t", R"("\b\f\n\r\t")"},
        {"other controls", "\x01\x1f", R"("\u0001\u001f")"},
        {"delete is no control", "\x7f", "\"\x7f\""},
        {"two bytes", "\xc3\xa9", "\"\xc3\xa9\""},
        {"three bytes", "\xe6\xbc\xa2", "\"\xe6\xbc\xa2\""},
        {"four bytes", "\xf0\x9f\x98\x80", "\"\xf0\x9f\x98\x80\""},
        {"stray continuation", "\x80", R"("\udc80")"},
        {"cut off", "\xe6\xbc", R"("\udce6\udcbc")"},
        {"overlong", "\xc0\xaf", R"("\udcc0\udcaf")"},
        {"overlong, three bytes", "\xe0\x80\xaf", R"("\udce0\udc80\udcaf")"},
        {"encoded surrogate", "\xed\xa0\x80", R"("\udced\udca0\udc80")"},
        {"beyond the last code point", "\xf4\x90\x80\x80", R"("\udcf4\udc90\udc80\udc80")"},
        {"bad byte between good ones", "a\xff\x62", R"("a\udcffb")"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        std::string out;
        Offline::appendJsonText(out, row.text, std::strlen(row.text));
        CHECK_TEXT(out.c_str(), row.json);
    }
}

TEST_CASE(anObjectKeepsTheOrderOfItsKeys) {
    CHECK_TEXT(Offline::JsonObject().line().c_str(), "{}");
    Offline::JsonObject object;
    object.text("a", "x").number("b", 18446744073709551615u).text("c", nullptr).text("d", std::string("y\n"));
    CHECK_TEXT(object.line().c_str(), R"({"a":"x","b":18446744073709551615,"c":null,"d":"y\n"})");
}
