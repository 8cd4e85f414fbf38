// Writes the texts and numbers of the scene format.
#pragma once

#include <string>

namespace Offline {

// A text in quotes. Bytes that are no valid UTF-8 become \udcNN, so that they read back as they were.
void appendText(std::string& out, const char* text);

// A number, or "nan", "inf", "-inf".
void appendNumber(std::string& out, float value);
void appendNumber(std::string& out, double value);
void appendNumber(std::string& out, int value);

}  // namespace Offline
