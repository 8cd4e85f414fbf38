// Decimal texts of numbers: a table of forms, and random bit patterns there and back.
#include "core/scene_file/numbers/numbers.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "check.h"
#include "random_numbers.h"

namespace {

std::string textOf(float value) {
    char text[Offline::NUMBER_TEXT_BYTES];
    return std::string(text, Offline::writeFloat(text, value));
}

std::string textOf(double value) {
    char text[Offline::NUMBER_TEXT_BYTES];
    return std::string(text, Offline::writeDouble(text, value));
}

bool read(const std::string& text, float& value) { return Offline::readFloat(text.data(), text.size(), value); }
bool read(const std::string& text, double& value) { return Offline::readDouble(text.data(), text.size(), value); }

template <class Float>
bool sameBits(Float a, Float b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

template <class Float>
bool comesBack(Float value) {
    Float back;
    return read(textOf(value), back) && sameBits(back, value);
}

}  // namespace

TEST_CASE(formsOfNumbers) {
    struct Row {
        double value;
        const char* text;
    };
    const Row rows[] = {{0.0, "0"},
                        {-0.0, "-0"},
                        {1.0, "1"},
                        {-1.5, "-1.5"},
                        {0.1, "0.1"},
                        {100.0, "100"},
                        {123456.75, "123456.75"},
                        {1e-6, "0.000001"},
                        {1.5e-6, "0.0000015"},
                        {1e-7, "1e-7"},
                        {1.25e-10, "1.25e-10"},
                        {1e20, "100000000000000000000"},
                        {1e21, "1e21"},
                        {1.5e22, "1.5e22"},
                        {1e100, "1e100"},
                        {9007199254740993.0, "9007199254740992"},
                        {0.30000000000000004, "0.30000000000000004"},
                        {5e-324, "5e-324"},
                        {2.2250738585072014e-308, "2.2250738585072014e-308"},
                        {1.7976931348623157e308, "1.7976931348623157e308"}};
    for (const Row& row : rows) {
        CHECK_ROW(row.text);
        CHECK_TEXT(textOf(row.value).c_str(), row.text);
        double back = 7.0;
        CHECK(read(row.text, back));
        CHECK(sameBits(back, row.value));
    }
}

TEST_CASE(formsOfFloats) {
    struct Row {
        float value;
        const char* text;
    };
    const Row rows[] = {{0.1f, "0.1"},
                        {16777216.0f, "16777216"},
                        {33554432.0f, "33554432"},
                        {3.4028235e38f, "3.4028235e38"},
                        {1.17549435e-38f, "1.1754944e-38"},
                        {1e-45f, "1e-45"},
                        {0.3f, "0.3"},
                        {-0.0f, "-0"}};
    for (const Row& row : rows) {
        CHECK_ROW(row.text);
        CHECK_TEXT(textOf(row.value).c_str(), row.text);
        CHECK(comesBack(row.value));
    }
}

TEST_CASE(readingRoundsOnce) {
    struct Row {
        const char* text;
        float value;
    };
    const Row rows[] = {
        // Through a double these would be rounded twice, to the wrong neighbour.
        {"1.00000005960464477540", 1.00000011920928955f},
        {"1.000000059604644775390625", 1.0f},
        {"1.0000000596046447753906250000000000000000000000000001", 1.00000011920928955f},
        {"1.000000178813934326171875", 1.0000002384185791f},
        {"16777217", 16777216.0f},
        {"16777217.0000000000000000000000000000000001", 16777218.0f},
        {"7.0064923216240853546186479164495806564013097093825788587853e-46", 0.0f},
        {"7.0064923216240853546186479164495806564013097093825788587855e-46", 1e-45f},
        {"1e-99999999999999999999", 0.0f},
        {"0e99999999999999999999", 0.0f},
        {"0.000000000000000000000000000000000000000000000000001e51", 1.0f},
        {"100000000000000000000000000000000000000000000000000e-50", 1.0f},
        {"1E+2", 100.0f},
        {"3.40282356e38", 3.4028235e38f},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.text);
        float value = 7.0f;
        CHECK(read(row.text, value));
        CHECK_EQ(value, row.value);
    }
}

TEST_CASE(longTextsAreReadToTheirLastDigit) {
    // The border between 1 and the next double, then a digit far behind.
    const std::string border = "1.00000000000000011102230246251565404236316680908203125";
    double value = 0.0;
    CHECK(read(border, value));
    CHECK_EQ(value, 1.0);
    CHECK(read(border + std::string(5000, '0'), value));
    CHECK_EQ(value, 1.0);
    CHECK(read(border + std::string(5000, '0') + "1", value));
    CHECK(value > 1.0);
    CHECK(read("1" + std::string(5000, '0') + "e-5000", value));
    CHECK_EQ(value, 1.0);
}

TEST_CASE(tooLargeIsRefused) {
    float number = 0.0f;
    double wide = 0.0;
    CHECK(!read("3.4028236e38", number));
    CHECK(!read("-1e39", number));
    CHECK(!read("1e99999999999", number));
    CHECK(!read("1.7976931348623159e308", wide));
    CHECK(!read("1e309", wide));
    CHECK(read("1.7976931348623158e308", wide));
}

TEST_CASE(randomNumbersComeBack) {
    RandomBits random(1);
    int floats = 0;
    int doubles = 0;
    for (int i = 0; i < 100000; ++i) {
        const float number = random.nextFloat();
        const double wide = random.nextDouble();
        floats += comesBack(number) ? 1 : 0;
        doubles += comesBack(wide) ? 1 : 0;
    }
    CHECK_EQ(floats, 100000);
    CHECK_EQ(doubles, 100000);
}

TEST_CASE(everyExponentComesBack) {
    for (std::uint64_t field = 0; field < 2047; ++field) {
        for (int step = -2; step <= 2; ++step) {
            const std::uint64_t bits = (field << 52) + static_cast<std::uint64_t>(step);
            double value;
            std::memcpy(&value, &bits, sizeof value);
            if (std::isfinite(value) && !comesBack(value)) CHECK_TEXT(textOf(value).c_str(), "a text that comes back");
        }
    }
    for (std::uint32_t field = 0; field < 255; ++field) {
        for (int step = -2; step <= 2; ++step) {
            const std::uint32_t bits = (field << 23) + static_cast<std::uint32_t>(step);
            float value;
            std::memcpy(&value, &bits, sizeof value);
            if (std::isfinite(value) && !comesBack(value)) CHECK_TEXT(textOf(value).c_str(), "a text that comes back");
        }
    }
}

TEST_CASE(noShorterTextComesBack) {
    RandomBits random(2);
    for (int i = 0; i < 20000; ++i) {
        const float number = std::fabs(random.nextFloat());
        const std::string text = textOf(number);
        std::string digits;
        long point = 0;
        bool fraction = false;
        const std::size_t exponentAt = text.find('e');
        const std::string mantissa = text.substr(0, exponentAt);
        for (char c : mantissa) {
            if (c == '.') {
                fraction = true;
            } else {
                digits += c;
                point += fraction ? 0 : 1;
            }
        }
        if (exponentAt != std::string::npos) point += std::strtol(text.c_str() + exponentAt + 1, nullptr, 10);
        while (digits.size() > 1 && digits[0] == '0') digits.erase(0, 1), --point;
        while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
        if (digits.size() < 2) continue;
        // Both neighbours with one digit less.
        const std::uint64_t less = std::strtoull(digits.substr(0, digits.size() - 1).c_str(), nullptr, 10);
        for (std::uint64_t candidate : {less, less + 1}) {
            const long exponent = point - static_cast<long>(digits.size()) + 1;
            float back = 0.0f;
            const std::string shorter = std::to_string(candidate) + "e" + std::to_string(exponent);
            if (read(shorter, back) && sameBits(back, number)) CHECK_TEXT(text.c_str(), shorter.c_str());
        }
    }
}
