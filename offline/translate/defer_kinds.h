// The kinds of records that may wait for an export request.
#pragma once

#include <string>
#include <string_view>

namespace Translation {

enum DeferKind : unsigned {
    DEFER_MATERIALS = 1,
    DEFER_TEXTURES = 2,
    DEFER_CAMERAS = 4,
    DEFER_NODES = 8,
};

// Reads a list such as "materials,cameras" into a set. False for a kind that is not known, named in `unknown`.
bool parseDeferKinds(std::string_view list, unsigned& kinds, std::string& unknown);

}  // namespace Translation
