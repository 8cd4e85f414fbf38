// The number texts against those of the C++ library, where it has correct ones.
#include <charconv>
#include <cstring>
#include <string>

#include "check.h"
#include "core/scene_file/numbers/numbers.h"
#include "random_numbers.h"

namespace {

std::size_t write(char* text, float value) { return Offline::writeFloat(text, value); }
std::size_t write(char* text, double value) { return Offline::writeDouble(text, value); }
bool read(const char* text, std::size_t length, float& value) { return Offline::readFloat(text, length, value); }
bool read(const char* text, std::size_t length, double& value) { return Offline::readDouble(text, length, value); }

// The digits without zeros at either end.
std::string digitsOf(const std::string& text) {
    std::string digits;
    for (char c : text.substr(0, text.find('e')))
        if (c >= '0' && c <= '9' && !(digits.empty() && c == '0')) digits += c;
    while (!digits.empty() && digits.back() == '0') digits.pop_back();
    return digits;
}

template <class Float>
int differences(Float value) {
    char ours[Offline::NUMBER_TEXT_BYTES];
    const std::size_t length = write(ours, value);
    char theirs[64];
    const auto end = std::to_chars(theirs, theirs + sizeof theirs, value, std::chars_format::scientific).ptr;
    int count = digitsOf(std::string(ours, length)) == digitsOf(std::string(theirs, end)) ? 0 : 1;
    Float back;
    std::from_chars(ours, ours + length, back);
    count += std::memcmp(&back, &value, sizeof value) == 0 ? 0 : 1;
    Float again;
    count +=
        read(theirs, static_cast<std::size_t>(end - theirs), again) && std::memcmp(&again, &value, sizeof value) == 0
            ? 0
            : 1;
    return count;
}

}  // namespace

TEST_CASE(writingAgreesWithTheLibrary) {
    RandomBits random(3);
    int count = 0;
    for (int i = 0; i < 500000; ++i) count += differences(random.nextFloat()) + differences(random.nextDouble());
    CHECK_EQ(count, 0);
}

TEST_CASE(readingAgreesWithTheLibrary) {
    RandomBits random(4);
    int different = 0;
    int compared = 0;
    for (int i = 0; i < 500000; ++i) {
        std::string text(1, static_cast<char>('1' + random.next() % 9));
        const std::uint64_t digits = random.next() % 25;
        for (std::uint64_t k = 0; k < digits; ++k) text += static_cast<char>('0' + random.next() % 10);
        text += "e" + std::to_string(static_cast<int>(random.next() % 640) - 330);
        double theirs;
        double ours;
        if (std::from_chars(text.data(), text.data() + text.size(), theirs).ec != std::errc()) continue;
        ++compared;
        different += read(text.data(), text.size(), ours) && std::memcmp(&ours, &theirs, sizeof ours) == 0 ? 0 : 1;
    }
    CHECK(compared > 400000);
    CHECK_EQ(different, 0);
}
