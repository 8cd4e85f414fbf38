// A file that is written aside, in the same folder, and takes the place of another one only when it is whole. Until
// then, and after any failure, the other one is as it was. One source per system.
//
// Paths are UTF-8. Every function that fails says why in `reason`; what was written aside is removed in the end.
#pragma once

#include <cstddef>
#include <string>

namespace Offline {

class ReplacingFile {
  public:
    ReplacingFile() = default;
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;
    ~ReplacingFile();

    bool open(const char* path, std::string& reason);
    bool write(const char* data, std::size_t length, std::string& reason);
    // Makes sure that everything is on the disk, then puts the file in its place.
    bool commit(std::string& reason);

  private:
    bool flush(std::string& reason);
    bool writeThrough(const char* data, std::size_t length, std::string& reason);
    void close();

    std::string target;  // links followed
    std::string aside;   // empty: nothing to remove
    std::string buffer;
    void* handle = nullptr;
    int descriptor = -1;
};

}  // namespace Offline
