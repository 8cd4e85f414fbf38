// Appends JSON values to a text, in the one way in which the scene format writes them.
#pragma once

#include <string>

#include "core/scene_file/json/json_writer.h"

namespace Translation {

using Offline::appendNumber;

inline void appendText(std::string& out, const std::string& text) { Offline::appendText(out, text.c_str()); }

// [a,b,...]
void appendNumbers(std::string& out, const float* numbers, std::size_t count);

}  // namespace Translation
