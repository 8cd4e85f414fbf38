// Standard output, whose failures count: a full disk is not a success.
#pragma once

#include <string>

// Both throw Failure with exitOutput.
void writeOutput(const std::string& text);
void flushOutput();
