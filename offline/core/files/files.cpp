#include "core/files/files.h"

#include <cerrno>
#include <cstring>

namespace Offline {

bool readWholeFile(const char* path, std::string& content, std::string& reason) {
    std::FILE* file = openForReading(path, reason);
    if (file == nullptr) return false;
    char buffer[1 << 16];
    std::size_t got;
    while ((got = std::fread(buffer, 1, sizeof buffer, file)) != 0) content.append(buffer, got);
    const bool good = std::ferror(file) == 0;
    if (!good) reason = std::strerror(errno);
    std::fclose(file);
    return good;
}

}  // namespace Offline
