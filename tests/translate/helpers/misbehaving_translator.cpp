// Stands in for the translating program and does what no program should: the name of the scene says what.
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

constexpr int OUTPUT = 3;
constexpr int REPORT = 4;

void say(int descriptor, const char* text) {
    if (write(descriptor, text, std::strlen(text)) < 0) _exit(99);
}

[[noreturn]] void spin() {
    for (volatile unsigned long i = 0;; i = i + 1) {
    }
}

}  // namespace

int main(int count, char** arguments) {
    const std::string deed = arguments[count - 1];
    if (deed == "hang") {
        for (;;) pause();
    } else if (deed == "hang-silently") {
        close(REPORT);
        for (;;) pause();
    } else if (deed == "spin") {
        spin();
    } else if (deed == "write-much") {
        const std::string block(1 << 16, 'x');
        for (;;) say(OUTPUT, block.c_str());
    } else if (deed == "segfault") {
        signal(SIGSEGV, SIG_DFL);
        raise(SIGSEGV);
    } else if (deed == "abort") {
        std::abort();
    } else if (deed == "killed") {
        raise(SIGKILL);
    } else if (deed == "silent") {
        return 0;
    } else if (deed == "garbage") {
        say(REPORT, "{\"event\":\"done\"\n\xff\xfe not JSON");
        return 0;
    } else if (deed == "done-but-failed") {
        say(REPORT, "{\"event\":\"done\"}\n");
        return 5;
    } else if (deed == "error-but-zero") {
        say(REPORT, "{\"event\":\"error\",\"category\":\"damaged\",\"message\":\"m\"}\n");
        return 0;
    } else if (deed == "half-done") {
        say(OUTPUT, "{\"kelmo-scene\":1}\n");
        say(REPORT, "{\"event\":\"totals\"}\n");
        return 1;
    } else if (deed == "descriptors") {
        // Counts what it was given: nothing but the five.
        int open = 0;
        for (int i = 0; i < 256; ++i) open += fcntl(i, F_GETFD) >= 0 ? 1 : 0;
        if (open != 5) return 1;
        say(REPORT, "{\"event\":\"done\"}\n");
        return 0;
    }
    return 1;
}
