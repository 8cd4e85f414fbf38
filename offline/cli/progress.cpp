#include "progress.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

Progress::Progress(const std::string& what) : shown_(isatty(STDERR_FILENO) == 1) {
    if (!shown_) return;
    fmt::print(stderr, "\r\033[K{} ...", what);
    std::fflush(stderr);
}

Progress::~Progress() {
    if (!shown_) return;
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
}

std::string shownSize(const std::string& path) {
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return {};
    return fmt::format("{:.1f} MB", static_cast<double>(facts.st_size) / 1e6);
}
