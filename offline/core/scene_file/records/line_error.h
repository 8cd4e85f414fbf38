// The words for a line of a scene file that cannot be read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "kelmo/core/error_record.h"

namespace Offline {

// What a reader says when memory is missing.
constexpr char NO_MEMORY[] = "there is not enough memory";

// The chain "[file] line 3, column 52 | plugin "clay", parameter "color" | message"; an empty place is left out. The
// caller holds one reference.
KUtils::ErrorRecord* lineError(const char* file, std::uint64_t line, std::size_t column, const std::string& place,
                               const std::string& message);

// " (did you mean "color"?)", or nothing when no name is near.
std::string suggestion(const char* nearest);

}  // namespace Offline
