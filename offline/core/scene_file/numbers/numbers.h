// Decimal texts of numbers, the same on every system: the C and C++ libraries differ in what they round
// correctly and in what they offer at all, so nothing of them is used.
//
// Errors: none but numbers that are too large. Needs nothing but this folder's number files.
#pragma once

#include <cstddef>

namespace Offline {

// The longest text that writeFloat and writeDouble make.
constexpr std::size_t NUMBER_TEXT_BYTES = 32;

// Writes the shortest decimal text that reads back as the same number, without a terminating zero, and
// returns its length. The number is finite. Exponents stand below 1e-6 and from 1e21 on.
std::size_t writeFloat(char* out, float value);
std::size_t writeDouble(char* out, double value);

// Reads a number in the grammar of JSON, rounded once, to the nearest (ties to even). False when it is too
// large for the type.
bool readFloat(const char* text, std::size_t length, float& value);
bool readDouble(const char* text, std::size_t length, double& value);

}  // namespace Offline
