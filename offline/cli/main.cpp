// kelmo-offline: runs post-translate scripts on scenes, without the host application.
#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <new>
#include <system_error>

#include "commands.h"
#include "failure.h"
#include "options.h"

namespace {

ExitCode dispatch(const Options& options) {
    if (options.run) return runCommand(*options.run);
    if (options.cat) return catCommand(*options.cat);
    if (options.info) return infoCommand(*options.info);
    fmt::print("{}", *options.text);
    return exitDone;
}

// What was printed must have arrived: a full disk is a failure like any other.
void flushOutput() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout)) {
        throw Failure(exitOutput, std::string("cannot write to standard output: ") + std::strerror(errno));
    }
}

}  // namespace

int main(int argc, char** argv) {
    ExitCode code = exitDone;
    try {
        code = dispatch(readOptions(argc, argv));
        flushOutput();
    } catch (const Failure& failure) {
        std::fflush(stdout);
        fmt::print(stderr, "kelmo-offline: {}\n", failure.what());
        return failure.code();
    } catch (const std::system_error& problem) {
        fmt::print(stderr, "kelmo-offline: cannot write to standard output: {}\n", problem.code().message());
        return exitOutput;
    } catch (const std::bad_alloc&) {
        std::fputs("kelmo-offline: not enough memory\n", stderr);
        return exitInstallation;
    }
    return code;
}
