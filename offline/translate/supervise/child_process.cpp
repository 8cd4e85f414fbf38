#include "child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>

#include "sanitized.h"

namespace Translation {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t MAX_REPORT_BYTES = std::size_t{64} << 20;

void limit(int resource, rlim_t soft, rlim_t hard) {
    // A limit that is already lower stays: it cannot be raised.
    rlimit current{};
    if (getrlimit(static_cast<__rlimit_resource>(resource), &current) == 0 && current.rlim_max < hard) {
        hard = current.rlim_max;
        if (soft > hard) soft = hard;
    }
    const rlimit wanted{soft, hard};
    setrlimit(static_cast<__rlimit_resource>(resource), &wanted);
}

// Between fork and exec: only calls that are safe there.
[[noreturn]] void becomeTranslator(char* const* arguments, int output, int report, const Limits& limits, pid_t parent) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(127);

    // The report first to a place that neither target takes.
    const int safeReport = fcntl(report, F_DUPFD, REPORT_DESCRIPTOR + 1);
    const int safeOutput = fcntl(output, F_DUPFD, REPORT_DESCRIPTOR + 1);
    const int nothing = open("/dev/null", O_RDWR);
    if (safeReport < 0 || safeOutput < 0 || nothing < 0) _exit(127);
    if (dup2(nothing, STDIN_FILENO) < 0 || dup2(nothing, STDOUT_FILENO) < 0 ||
        dup2(safeOutput, OUTPUT_DESCRIPTOR) < 0 || dup2(safeReport, REPORT_DESCRIPTOR) < 0) {
        _exit(127);
    }
    if (syscall(SYS_close_range, REPORT_DESCRIPTOR + 1, ~0u, 0u) != 0) {
        for (int number = REPORT_DESCRIPTOR + 1; number < 1024; ++number) close(number);
    }

    if (!SANITIZED) limit(RLIMIT_AS, limits.memoryBytes, limits.memoryBytes);
    limit(RLIMIT_CPU, limits.processorSeconds, limits.processorSeconds + 2);
    limit(RLIMIT_FSIZE, limits.outputBytes, limits.outputBytes);
    limit(RLIMIT_CORE, 0, 0);
    signal(SIGXFSZ, SIG_DFL);
    signal(SIGPIPE, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);

    execv(arguments[0], arguments);
    _exit(127);
}

// Reads until the process closes its end. False when the deadline passed.
bool readReport(int descriptor, Clock::time_point deadline, std::string& report) {
    char block[65536];
    for (;;) {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
        if (left <= 0) return false;
        pollfd entry{descriptor, POLLIN, 0};
        const int ready = poll(&entry, 1, static_cast<int>(left));
        if (ready < 0 && errno != EINTR) return true;
        if (ready <= 0) continue;
        const ssize_t count = read(descriptor, block, sizeof block);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return true;
        if (report.size() < MAX_REPORT_BYTES) report.append(block, static_cast<std::size_t>(count));
    }
}

// Waits for the end of the process; one that outlives the deadline is killed.
ProcessResult waitFor(pid_t process, Clock::time_point deadline) {
    ProcessResult result;
    bool killed = false;
    for (;;) {
        int status = 0;
        const pid_t ended = waitpid(process, &status, killed ? 0 : WNOHANG);
        if (ended < 0 && errno == EINTR) continue;
        if (ended < 0) {
            result.number = errno;
            return result;
        }
        if (ended == process) {
            const bool bySignal = WIFSIGNALED(status);
            result.end = killed ? ProcessEnd::timeOut : bySignal ? ProcessEnd::signalled : ProcessEnd::exited;
            result.number = bySignal ? WTERMSIG(status) : WEXITSTATUS(status);
            return result;
        }
        if (Clock::now() >= deadline) {
            kill(process, SIGKILL);
            killed = true;
        } else {
            poll(nullptr, 0, 1);
        }
    }
}

}  // namespace

ProcessResult runLimited(const std::vector<std::string>& arguments, int output, const Limits& limits) {
    ProcessResult result;
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        result.number = errno;
        return result;
    }
    FileDescriptor readEnd(ends[0]);
    FileDescriptor writeEnd(ends[1]);

    std::vector<char*> texts;
    texts.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments) texts.push_back(const_cast<char*>(argument.c_str()));
    texts.push_back(nullptr);

    const auto deadline = Clock::now() + std::chrono::seconds(limits.wallSeconds);
    const pid_t parent = getpid();
    const pid_t process = fork();
    if (process < 0) {
        result.number = errno;
        return result;
    }
    if (process == 0) becomeTranslator(texts.data(), output, writeEnd.get(), limits, parent);
    writeEnd.close();

    std::string report;
    readReport(readEnd.get(), deadline, report);
    result = waitFor(process, deadline);
    result.report = std::move(report);
    return result;
}

}  // namespace Translation
