// Writes a whole text to an open descriptor.
#pragma once

#include <string_view>

namespace Translation {

// False when not all of it could be written; errno says why.
bool writeAll(int descriptor, std::string_view text);

}  // namespace Translation
