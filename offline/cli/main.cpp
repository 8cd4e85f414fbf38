// kelmo-offline: runs post-translate scripts on scenes, without the host application.
#include <cstdio>
#include <new>
#include <string>

#include "commands.h"
#include "failure.h"
#include "options.h"
#include "output/standard_output.h"

namespace {

ExitCode dispatch(const Options& options) {
    if (options.run) return runCommand(*options.run);
    if (options.cat) return catCommand(*options.cat);
    if (options.info) return infoCommand(*options.info);
    writeOutput(*options.text);
    return exitDone;
}

}  // namespace

int main(int argc, char** argv) {
    ExitCode code = exitDone;
    try {
        code = dispatch(readOptions(argc, argv));
        flushOutput();
    } catch (const Failure& failure) {
        std::fflush(stdout);
        writeError(std::string("kelmo-offline: ") + failure.what() + "\n");
        return failure.code();
    } catch (const std::bad_alloc&) {
        std::fputs("kelmo-offline: not enough memory\n", stderr);
        return exitInstallation;
    }
    return code;
}
