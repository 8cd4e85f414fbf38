#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "core/files/files.h"

namespace Offline {

std::FILE* openForReading(const char* path, std::string& reason) {
    std::FILE* file = std::fopen(path, "rbe");
    if (file == nullptr) {
        reason = std::strerror(errno);
        return nullptr;
    }
    struct stat status {};
    if (fstat(fileno(file), &status) == 0 && S_ISDIR(status.st_mode)) {
        reason = "it is a folder";
        std::fclose(file);
        return nullptr;
    }
    return file;
}

bool listFiles(const char* directory, const char* ending, std::vector<std::string>& names, std::string& reason) {
    DIR* folder = opendir(directory);
    if (folder == nullptr) {
        reason = std::strerror(errno);
        return false;
    }
    const std::size_t endingLength = std::strlen(ending);
    errno = 0;
    while (const dirent* entry = readdir(folder)) {
        const std::size_t length = std::strlen(entry->d_name);
        if (length > endingLength && std::strcmp(entry->d_name + length - endingLength, ending) == 0)
            names.emplace_back(entry->d_name, length);
        errno = 0;
    }
    const bool good = errno == 0;
    if (!good) reason = std::strerror(errno);
    closedir(folder);
    std::sort(names.begin(), names.end());
    return good;
}

}  // namespace Offline
