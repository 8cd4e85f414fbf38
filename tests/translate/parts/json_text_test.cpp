// Texts and numbers as the scene format writes them.
#include "translate/json_text.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace Translation;

TEST(JsonText, EscapesAsTheSceneFormatDoes) {
    const struct {
        std::string text;
        const char* json;
    } cases[] = {
        {"", "\"\""},
        {"plain", "\"plain\""},
        {"a\"b\\c/", "\"a\\\"b\\\\c/\""},
        {"\b\f\n\r\t", "\"\\b\\f\\n\\r\\t\""},
        {"\x01\x1f\x7f", "\"\\u0001\\u001f\x7f\""},
        {"tore_émail 模型 \xf0\x9f\x98\x80", "\"tore_émail 模型 \xf0\x9f\x98\x80\""},
        {"\xff", "\"\\udcff\""},
        {"a\xc3", "\"a\\udcc3\""},
        {"\xc0\x80", "\"\\udcc0\\udc80\""},
        {"\xed\xa0\x80", "\"\\udced\\udca0\\udc80\""},
        {"\xf4\x90\x80\x80", "\"\\udcf4\\udc90\\udc80\\udc80\""},
        {"\xe2\x82x", "\"\\udce2\\udc82x\""},
    };
    for (const auto& row : cases) {
        std::string json;
        appendText(json, row.text);
        EXPECT_EQ(json, row.json);
    }
}

TEST(JsonText, WritesNumbersShortly) {
    const struct {
        float number;
        const char* json;
    } cases[] = {
        {0, "0"},
        {-0.0f, "-0"},
        {1, "1"},
        {0.1f, "0.1"},
        {1.0f / 3, "0.33333334"},
        {1e-7f, "1e-7"},
        {std::numeric_limits<float>::quiet_NaN(), "\"nan\""},
        {std::numeric_limits<float>::infinity(), "\"inf\""},
        {-std::numeric_limits<float>::infinity(), "\"-inf\""},
    };
    for (const auto& row : cases) {
        std::string json;
        appendNumber(json, row.number);
        EXPECT_EQ(json, row.json);
    }
    std::string json;
    appendNumber(json, static_cast<double>(0.1f));
    EXPECT_EQ(json, "0.10000000149011612");
}

TEST(JsonText, WritesLists) {
    const float numbers[] = {1, -2.5f, 0};
    std::string json;
    appendNumbers(json, numbers, 3);
    EXPECT_EQ(json, "[1,-2.5,0]");
}

}  // namespace
