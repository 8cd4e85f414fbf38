// Appends JSON values to a text, in the one way in which the scene format writes them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Translation {

// A text in quotes. Bytes that are not part of valid UTF-8 are escaped, each as \udcNN.
void appendText(std::string& out, std::string_view text);

void appendInteger(std::string& out, std::int64_t number);

// The shortest decimal that reads back as the same number, or "nan", "inf", "-inf" in quotes.
void appendNumber(std::string& out, float number);
void appendNumber(std::string& out, double number);

// [a,b,...]
void appendNumbers(std::string& out, const float* numbers, std::size_t count);

}  // namespace Translation
