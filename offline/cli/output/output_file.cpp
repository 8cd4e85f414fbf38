#include "output/output_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "output/deferred_signals.h"
#include "translate/supervise/supervise.h"

namespace {

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
    throw Failure(exitOutput, "cannot write \"" + path + "\": " + reason);
}

std::string folderOf(const std::string& path) {
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool sameFile(const struct stat& a, const std::string& path) {
    struct stat b {};
    return stat(path.c_str(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

bool isSpecial(const std::string& path) {
    struct stat facts {};
    return stat(path.c_str(), &facts) == 0 && !S_ISREG(facts.st_mode);
}

// A link is followed, so that the file it names is replaced and not the link.
std::string realPath(const std::string& path) {
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    return real ? real.get() : path;
}

void saveDirectly(Host& host, const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "w");
    if (!file) refuse(path, std::strerror(errno));
    bool written = true;
    host.saveText([&](const std::string& text) {
        written = written && std::fwrite(text.data(), 1, text.size(), file) == text.size();
    });
    if (!written) {
        const int reason = errno;
        std::fclose(file);
        refuse(path, std::strerror(reason));
    }
    if (std::fclose(file) != 0) refuse(path, std::strerror(errno));
}

}  // namespace

std::string absolutePath(const std::string& path) {
    if (path.empty() || path[0] == '/') return path;
    const std::unique_ptr<char, void (*)(void*)> folder(getcwd(nullptr, 0), std::free);
    if (!folder) refuse(path, std::strerror(errno));
    return std::string(folder.get()) + "/" + path;
}

void checkOutput(const std::string& path, const std::string& scene, bool sceneIsExport, const std::string& script) {
    struct stat facts {};
    const bool exists = stat(path.c_str(), &facts) == 0;
    if (sceneIsExport && exists && sameFile(facts, scene)) {
        throw Failure(exitUsage, "the output \"" + path + "\" is the export itself; save to a .kscene file");
    }
    if (Translation::looksTranslatable(path)) {
        throw Failure(exitUsage, "the output \"" + path + "\" is named like an export; save to a .kscene file");
    }
    if (exists) {
        if (S_ISDIR(facts.st_mode)) refuse(path, "it is a folder");
        if (sameFile(facts, script)) throw Failure(exitUsage, "the output \"" + path + "\" is the script itself");
        if (access(path.c_str(), W_OK) != 0) refuse(path, std::strerror(errno));
        if (!S_ISREG(facts.st_mode)) return;
    }
    const std::string folder = folderOf(realPath(path));
    if (stat(folder.c_str(), &facts) != 0) refuse(path, "the folder \"" + folder + "\" does not exist");
    if (!S_ISDIR(facts.st_mode)) refuse(path, "\"" + folder + "\" is not a folder");
    if (access(folder.c_str(), W_OK) != 0) refuse(path, "the folder \"" + folder + "\": " + std::strerror(errno));
}

void saveScene(Host& host, const std::string& path) {
    const DeferredSignals untilWritten;
    if (isSpecial(path)) {
        saveDirectly(host, path);
    } else {
        host.save(realPath(path));
    }
}
