// Files and folders by UTF-8 path. One source per system.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace Offline {

// Opens a file for reading bytes; null on failure, `reason` then says why. A folder is refused.
std::FILE* openForReading(const char* path, std::string& reason);

// Appends the whole content of a file; false on failure, `reason` then says why.
bool readWholeFile(const char* path, std::string& content, std::string& reason);

// The names of the files in a folder that end in `ending`, sorted by bytes; false on failure.
bool listFiles(const char* directory, const char* ending, std::vector<std::string>& names, std::string& reason);

}  // namespace Offline
