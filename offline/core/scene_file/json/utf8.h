// The form of UTF-8, byte by byte.
#pragma once

#include <cstddef>
#include <string>

namespace Offline {

// The length of the valid UTF-8 character that begins at `text`; 0 when the bytes there are none.
inline std::size_t utf8Length(const char* text, const char* end) {
    const auto byte = [&](int index) { return static_cast<unsigned char>(text[index]); };
    const auto follows = [&](int index, unsigned low, unsigned high) {
        return text + index < end && byte(index) >= low && byte(index) <= high;
    };
    const unsigned first = byte(0);
    if (first < 0x80) return 1;
    if (first >= 0xc2 && first <= 0xdf) return follows(1, 0x80, 0xbf) ? 2 : 0;
    if (first >= 0xe0 && first <= 0xef) {
        const unsigned low = first == 0xe0 ? 0xa0 : 0x80;
        const unsigned high = first == 0xed ? 0x9f : 0xbf;
        return follows(1, low, high) && follows(2, 0x80, 0xbf) ? 3 : 0;
    }
    if (first >= 0xf0 && first <= 0xf4) {
        const unsigned low = first == 0xf0 ? 0x90 : 0x80;
        const unsigned high = first == 0xf4 ? 0x8f : 0xbf;
        return follows(1, low, high) && follows(2, 0x80, 0xbf) && follows(3, 0x80, 0xbf) ? 4 : 0;
    }
    return 0;
}

inline void appendUtf8(std::string& text, unsigned long code) {
    const auto put = [&](unsigned long byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xc0 | code >> 6);
        put(0x80 | (code & 0x3f));
    } else if (code < 0x10000) {
        put(0xe0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3f));
        put(0x80 | (code & 0x3f));
    } else {
        put(0xf0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3f));
        put(0x80 | (code >> 6 & 0x3f));
        put(0x80 | (code & 0x3f));
    }
}

}  // namespace Offline
