#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "core/files/replacing_file.h"

namespace Offline {
namespace {

bool failed(std::string& reason) {
    reason = std::strerror(errno);
    return false;
}

// The permissions that the file has, or that a new one would get.
mode_t permissionsOf(const char* path) {
    struct stat status;
    if (::stat(path, &status) == 0) return status.st_mode & 0777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

bool ReplacingFile::open(const char* path, std::string& reason) {
    struct stat status;
    const bool exists = ::stat(path, &status) == 0;
    if (exists && !S_ISREG(status.st_mode)) {
        reason = S_ISDIR(status.st_mode) ? "it is a folder" : "it is no ordinary file";
        return false;
    }
    if (exists && ::access(path, W_OK) != 0) return failed(reason);
    char resolved[PATH_MAX];
    target = exists && ::realpath(path, resolved) != nullptr ? resolved : path;

    std::string pattern = target + ".XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    descriptor = ::mkstemp(name.data());
    if (descriptor == -1) return failed(reason);
    aside = name.data();
    return ::fchmod(descriptor, permissionsOf(target.c_str())) == 0 || failed(reason);
}

bool ReplacingFile::writeThrough(const char* data, std::size_t length, std::string& reason) {
    while (length != 0) {
        const ssize_t written = ::write(descriptor, data, length);
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return failed(reason);
        data += written;
        length -= static_cast<std::size_t>(written);
    }
    return true;
}

bool ReplacingFile::commit(std::string& reason) {
    if (!flush(reason)) return false;
    if (::fsync(descriptor) != 0) return failed(reason);
    const int closed = ::close(descriptor);
    descriptor = -1;
    if (closed != 0 || ::rename(aside.c_str(), target.c_str()) != 0) return failed(reason);
    aside.clear();
    // The new name is in its place already; that the folder reaches the disk is only asked for.
    const std::size_t slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : target.substr(0, slash + 1);
    const int directory = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
    if (directory != -1) {
        ::fsync(directory);
        ::close(directory);
    }
    return true;
}

void ReplacingFile::close() {
    if (descriptor != -1) ::close(descriptor);
    descriptor = -1;
}

ReplacingFile::~ReplacingFile() {
    close();
    if (!aside.empty()) ::unlink(aside.c_str());
}

}  // namespace Offline
