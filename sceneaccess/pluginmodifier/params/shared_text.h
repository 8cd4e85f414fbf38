// A reference-counted text in the core's heap: names and texts that several records share.
//
// Ownership: whoever holds a pointer holds one reference, raised with retainText and given back with
// releaseText. The count is not atomic. A null pointer is a null text everywhere.
#pragma once

#include <cstdint>
#include <memory>

#include "kelmo/core/allocator.h"

namespace KUtils {

struct SharedText {
    ReallocFunction reallocate;  // with which the characters were taken
    FreeFunction free;           // for the characters and the record
    char* characters;            // zero-terminated
    std::int32_t references;
};

// A new text with one reference, holding the characters up to the first zero. Null for null, and when
// the memory cannot be had.
SharedText* makeSharedText(const char* characters);

inline SharedText* retainText(SharedText* text) {
    if (text != nullptr) ++text->references;
    return text;
}

void releaseText(SharedText* text);

// The characters, or null for a null text; valid while a reference is held.
inline const char* charactersOf(const SharedText* text) { return text != nullptr ? text->characters : nullptr; }

struct TextRelease {
    void operator()(SharedText* text) const { releaseText(text); }
};
// Owns one reference.
using TextRef = std::unique_ptr<SharedText, TextRelease>;

}  // namespace KUtils
