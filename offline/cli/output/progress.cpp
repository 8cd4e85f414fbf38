#include "output/progress.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

namespace {

// What the timer's signal handler prints: the line and the seconds that have passed. Only calls that are safe in a
// handler are made there.
char line[512];
size_t lineLength = 0;
volatile std::sig_atomic_t seconds = 0;

void tick(int) {
    const int former = errno;
    seconds = seconds + 1;
    char digits[16];
    size_t count = 0;
    for (int rest = seconds; rest > 0; rest /= 10) digits[count++] = static_cast<char>('0' + rest % 10);
    std::reverse(digits, digits + count);
    std::memcpy(digits + count, " s", 2);
    // A terminal that takes no more is no reason to stop.
    if (write(STDERR_FILENO, line, lineLength) < 0 || write(STDERR_FILENO, digits, count + 2) < 0) seconds = 0;
    errno = former;
}

void everySecond(bool wanted) {
    itimerval interval{};
    interval.it_value.tv_sec = interval.it_interval.tv_sec = wanted ? 1 : 0;
    struct sigaction action {};
    action.sa_handler = wanted ? tick : SIG_DFL;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    // In this order no signal meets the default handling, which would end the program.
    if (wanted) sigaction(SIGALRM, &action, nullptr);
    setitimer(ITIMER_REAL, &interval, nullptr);
    if (!wanted) sigaction(SIGALRM, &action, nullptr);
}

}  // namespace

Progress::Progress(const std::string& what) : shown_(isatty(STDERR_FILENO) == 1) {
    if (!shown_) return;
    const std::string text = fmt::format("\r\033[K{} ... ", what);
    lineLength = std::min(text.size(), sizeof line);
    std::memcpy(line, text.data(), lineLength);
    seconds = 0;
    std::fwrite(line, 1, lineLength, stderr);
    std::fflush(stderr);
    everySecond(true);
}

Progress::~Progress() {
    if (!shown_) return;
    everySecond(false);
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
}

std::string shownSize(const std::string& path) {
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0 || !S_ISREG(facts.st_mode)) return {};
    return fmt::format("{:.1f} MB", static_cast<double>(facts.st_size) / 1e6);
}
