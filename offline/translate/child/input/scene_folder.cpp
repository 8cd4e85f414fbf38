#include "child/input/scene_folder.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

#include "child/input/file_stream.h"

namespace Translation {
namespace {

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

[[noreturn]] void cannotRead(Problem problem, const std::string& path, const std::string& why) {
    throw Failure{problem, quoted(path) + " cannot be read: " + why + "."};
}

// The real place of a file; empty when there is none.
std::string realPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), free);
    return real ? std::string(real.get()) : std::string();
}

// Where an open file really is.
std::string placeOfDescriptor(int descriptor) {
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), path, sizeof path);
    if (length <= 0 || length == static_cast<ssize_t>(sizeof path)) return {};
    return std::string(path, static_cast<std::size_t>(length));
}

bool startsWith(const std::string& text, const std::string& start) { return text.compare(0, start.size(), start) == 0; }

void remember(std::vector<std::string>& names, const std::string& name) {
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
}

}  // namespace

FileDescriptor openScene(const std::string& path, std::uint64_t maxBytes, std::uint64_t& bytes) {
    // Not blocking, so that a pipe without a writer is opened, looked at and refused.
    FileDescriptor file(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) {
        if (errno == ENOENT || errno == ENOTDIR) cannotRead(Problem::missing, path, "there is no such file");
        if (errno == EACCES) cannotRead(Problem::unreadable, path, "permission is denied");
        cannotRead(Problem::unreadable, path, strerror(errno));
    }
    struct stat facts {};
    if (fstat(file.get(), &facts) != 0) cannotRead(Problem::unreadable, path, strerror(errno));
    if (S_ISDIR(facts.st_mode)) cannotRead(Problem::folder, path, "it is a folder");
    if (!S_ISREG(facts.st_mode)) cannotRead(Problem::unreadable, path, "it is not a regular file");
    bytes = static_cast<std::uint64_t>(facts.st_size);
    if (bytes == 0) cannotRead(Problem::empty, path, "it is empty");
    if (bytes > maxBytes) {
        cannotRead(Problem::tooLarge, path,
                   "it has " + std::to_string(bytes) + " bytes, and at most " + std::to_string(maxBytes) + " are read");
    }
    return file;
}

SceneFolder::SceneFolder(const std::string& scenePath, std::uint64_t maxBytes)
    : scene_(realPath(scenePath)), maxBytes_(maxBytes) {
    if (scene_.empty()) cannotRead(Problem::unreadable, scenePath, "its folder cannot be found");
    folder_ = scene_.substr(0, scene_.rfind('/') + 1);
}

SceneFolder::Place SceneFolder::resolve(const std::string& name, std::string& real) const {
    std::string path = name;
    std::replace(path.begin(), path.end(), '\\', '/');
    real = realPath(startsWith(path, "/") ? path : folder_ + path);
    if (real.empty()) return Place::missing;
    return startsWith(real, folder_) ? Place::inside : Place::outside;
}

SceneFolder::Place SceneFolder::placeOf(const std::string& name) const {
    std::string real;
    return resolve(name, real);
}

std::string SceneFolder::shown(const std::string& file) const {
    return startsWith(file, folder_) ? file.substr(folder_.size()) : file;
}

bool SceneFolder::Exists(const char* file) const {
    std::string real;
    const Place place = resolve(file, real);
    // What is missing is not remembered: with this the reader tries names of its own making.
    if (place == Place::outside) remember(outside_, shown(file));
    return place == Place::inside;
}

Assimp::IOStream* SceneFolder::Open(const char* file, const char* mode) {
    std::string real;
    if (std::strpbrk(mode, "wa+") != nullptr) return nullptr;
    const Place place = resolve(file, real);
    if (place == Place::outside) remember(outside_, shown(file));
    if (place == Place::missing) remember(missing_, shown(file));
    if (place != Place::inside) return nullptr;

    FileDescriptor descriptor(open(real.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    struct stat facts {};
    if (!descriptor || fstat(descriptor.get(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
        remember(missing_, shown(file));
        return nullptr;
    }
    // Asked once more of the open file: the path may have changed its meaning since.
    if (!startsWith(placeOfDescriptor(descriptor.get()), folder_)) {
        remember(outside_, shown(file));
        return nullptr;
    }
    const auto bytes = static_cast<std::uint64_t>(facts.st_size);
    if (bytes > maxBytes_) {
        remember(tooLarge_, shown(file));
        return nullptr;
    }
    return new FileStream(std::move(descriptor), bytes);
}

void SceneFolder::Close(Assimp::IOStream* stream) { delete stream; }

}  // namespace Translation
