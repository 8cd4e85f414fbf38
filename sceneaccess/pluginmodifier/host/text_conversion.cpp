#include "host/text_conversion.h"

#include <cstdint>

namespace KUtils::Python {

namespace {

// The code points that stand for single bytes.
constexpr std::uint32_t ESCAPE_FIRST = 0x100000;
constexpr std::uint32_t ESCAPE_LAST = 0x1000FF;

// Where converted units go: counted always, stored while there is room for the whole of a code point.
template <class Unit>
class Output {
  public:
    Output(Unit* place, std::size_t room) : units(place), capacity(room) {}

    // False when `size` units do not fit any more.
    bool put(const Unit* code, std::size_t size) {
        if (units != nullptr) {
            if (size > capacity - count) return false;
            for (std::size_t i = 0; i < size; ++i) units[count + i] = code[i];
        }
        count += size;
        return true;
    }
    std::size_t finish() {
        if (units != nullptr && count < capacity) units[count] = 0;
        return count;
    }

  private:
    Unit* units;
    std::size_t capacity;
    std::size_t count = 0;
};

bool putUtf16(Output<char16_t>& output, std::uint32_t code) {
    if (code < 0x10000) {
        const char16_t unit = static_cast<char16_t>(code);
        return output.put(&unit, 1);
    }
    const std::uint32_t rest = code - 0x10000;
    const char16_t pair[2] = {static_cast<char16_t>(0xD800 + (rest >> 10)),
                              static_cast<char16_t>(0xDC00 + (rest & 0x3FF))};
    return output.put(pair, 2);
}

int leadingOnes(unsigned char byte) {
    int ones = 0;
    while (ones < 8 && (byte & (0x80 >> ones)) != 0) ++ones;
    return ones;
}

// Reads one sequence at `text`: its length, and its value when it is accepted, else its bytes up to the point of
// failure (`accepted` false).
struct Sequence {
    std::size_t length;
    std::uint32_t code;
    bool accepted;
};

Sequence readSequence(const unsigned char* text) {
    const int announced = leadingOnes(text[0]);
    if (announced == 0) return {1, text[0], true};
    if (announced == 1) return {1, 0, false};
    std::uint64_t code = announced < 7 ? text[0] & (0x7F >> announced) : 0;
    std::size_t length = 1;
    while (length < static_cast<std::size_t>(announced) && (text[length] & 0xC0) == 0x80) {
        code = code << 6 | (text[length] & 0x3F);
        ++length;
    }
    // Longer forms could only hold values below 0x110000 by being overlong.
    constexpr std::uint32_t overlong[] = {0, 0, 0x7F, 0x7FF, 0xFFFF};
    const bool accepted = length == static_cast<std::size_t>(announced) && announced <= 4 &&
                          code > overlong[announced] && code < 0x110000 && (code < ESCAPE_FIRST || code > ESCAPE_LAST);
    return {length, static_cast<std::uint32_t>(code), accepted};
}

bool putUtf8(Output<char>& output, std::uint32_t code) {
    if (code >= ESCAPE_FIRST && code <= ESCAPE_LAST) {
        const char byte = static_cast<char>(code & 0xFF);
        return output.put(&byte, 1);
    }
    // The limits of one to four bytes; two units cannot make more.
    constexpr std::uint32_t limits[] = {0x7F, 0x7FF, 0xFFFF, 0x1FFFFF};
    constexpr std::uint32_t leads[] = {0x00, 0xC0, 0xE0, 0xF0};
    int following = 0;
    while (code > limits[following]) ++following;
    char bytes[4];
    for (int i = following; i > 0; --i) {
        bytes[i] = static_cast<char>(0x80 | (code & 0x3F));
        code >>= 6;
    }
    bytes[0] = static_cast<char>(leads[following] | code);
    return output.put(bytes, following + 1);
}

}  // namespace

std::size_t utf8ToUtf16(const char* text, char16_t* output, std::size_t capacity) {
    Output<char16_t> units(output, capacity);
    const auto* bytes = reinterpret_cast<const unsigned char*>(text);
    bool room = true;
    while (room && *bytes != 0) {
        const Sequence sequence = readSequence(bytes);
        if (sequence.accepted) {
            room = putUtf16(units, sequence.code);
        } else {
            for (std::size_t i = 0; room && i < sequence.length; ++i) room = putUtf16(units, ESCAPE_FIRST + bytes[i]);
        }
        bytes += sequence.length;
    }
    return units.finish();
}

std::size_t utf16ToUtf8(const char16_t* text, char* output, std::size_t capacity) {
    Output<char> bytes(output, capacity);
    bool room = true;
    while (room && *text != 0) {
        std::uint32_t code = *text++;
        if (code >= 0xD800 && code < 0xDC00 && *text >= 0xDC00 && *text < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10) + (*text++ - 0xDC00u);
        }
        room = putUtf8(bytes, code);
    }
    return bytes.finish();
}

}  // namespace KUtils::Python
