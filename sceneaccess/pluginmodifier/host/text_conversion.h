// Lossless conversion between UTF-8 and UTF-16, after which any byte string comes back as it was: bytes that are
// not valid UTF-8 travel as the code points from 0x100000 to 0x1000FF, which no text uses.
//
// Only an encoded pair of surrogates (each as three bytes) comes back changed, joined into one code point.
#pragma once

#include <cstddef>

namespace KUtils::Python {

// Converts the zero-terminated `text` into at most `capacity` units or bytes, whole code points only, with a
// terminator when there is room. Returns the count produced without it; without an output (null) the count that
// would be produced.
std::size_t utf8ToUtf16(const char* text, char16_t* output, std::size_t capacity);
std::size_t utf16ToUtf8(const char16_t* text, char* output, std::size_t capacity);

}  // namespace KUtils::Python
