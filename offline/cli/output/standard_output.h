// Standard output, whose failures count: a full disk is not a success. And standard error.
#pragma once

#include <string>

// Both throw Failure with exitOutput.
void writeOutput(const std::string& text);
void flushOutput();

// When this fails there is nobody left to tell; the exit code still says how the program ended.
void writeError(const std::string& text);
