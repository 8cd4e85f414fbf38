// Any bytes go to UTF-16 and back as they were; only a pair of surrogates that were encoded one by one comes back
// joined, and as a single byte, zero too, when the joined code point is one that stands for a byte. Any units go to
// UTF-8. What is announced without an output is what is produced, and with less room the output is the beginning of it,
// whole code points only.
#include "host/text_conversion.h"

#include <cstring>
#include <string>
#include <vector>

#include "input.h"

using KUtils::Python::utf16ToUtf8;
using KUtils::Python::utf8ToUtf16;

namespace {

// The unit that three bytes encode when it is a surrogate of this half (0xD800 or 0xDC00), else 0.
unsigned surrogateAt(const std::string& text, std::size_t at, unsigned half) {
    if (at + 3 > text.size()) return 0;
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
    if (byte(0) != 0xED || (byte(1) & 0xC0) != 0x80 || (byte(2) & 0xC0) != 0x80) return 0;
    const unsigned unit = 0xD000 | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
    return (unit & 0xFC00) == half ? unit : 0;
}

// The text with every encoded pair joined.
std::string joined(const std::string& text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const unsigned high = surrogateAt(text, at, 0xD800);
        const unsigned low = surrogateAt(text, at + 3, 0xDC00);
        if (high == 0 || low == 0) {
            result += text[at++];
            continue;
        }
        const unsigned code = 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
        if (code >= 0x100000 && code <= 0x1000FF) {
            result += static_cast<char>(code & 0xFF);
        } else {
            for (const unsigned byte :
                 {0xF0 | code >> 18, 0x80 | (code >> 12 & 0x3F), 0x80 | (code >> 6 & 0x3F), 0x80 | (code & 0x3F)}) {
                result += static_cast<char>(byte);
            }
        }
        at += 6;
    }
    return result;
}

// Converts, and once more into less room, chosen by `less`.
template <class From, class To>
std::vector<To> converted(std::size_t (*convert)(const From*, To*, std::size_t), const From* text, std::size_t less) {
    const std::size_t count = convert(text, nullptr, 0);
    std::vector<To> whole(count + 1, To(1));
    REQUIRE(convert(text, whole.data(), whole.size()) == count);
    REQUIRE(whole[count] == 0);
    // In a block of its own, whose end is watched.
    std::vector<To> part(less % (count + 1), To(1));
    const std::size_t written = convert(text, part.empty() ? whole.data() : part.data(), part.size());
    REQUIRE(written <= part.size() && part.size() - written < 4);
    REQUIRE(written == part.size() || part[written] == 0);
    for (std::size_t i = 0; i < written; ++i) REQUIRE(part[i] == whole[i]);
    return whole;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const auto less = static_cast<std::size_t>(input.below(65536));
    const std::string text = std::string(input.rest().c_str());

    const std::vector<char16_t> units = converted(utf8ToUtf16, text.c_str(), less);
    const std::vector<char> back = converted(utf16ToUtf8, units.data(), less);
    REQUIRE(std::string(back.begin(), back.end() - 1) == joined(text));

    std::vector<char16_t> anyUnits(text.size() / 2 + 1, 0);
    std::memcpy(anyUnits.data(), text.data(), text.size() / 2 * 2);
    const std::vector<char> bytes = converted(utf16ToUtf8, anyUnits.data(), less);
    REQUIRE(bytes.size() - 1 <= 3 * (anyUnits.size() - 1));
    return 0;
}
