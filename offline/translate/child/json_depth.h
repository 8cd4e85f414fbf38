// How deep a JSON text is nested, found without nesting: the scene reader follows nesting with its own stack,
// which a hostile file would exhaust.
#pragma once

#include <cstdint>

namespace Translation {

constexpr int MAX_JSON_DEPTH = 256;

// True when brackets and braces outside of texts are never more than MAX_JSON_DEPTH deep in a part of an open
// file. Says nothing else about the text.
bool jsonDepthBounded(int descriptor, std::uint64_t offset, std::uint64_t bytes);

}  // namespace Translation
