// The translating program. It protects itself before it reads the first byte of the scene.
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>

#include "child/input/read_scene.h"
#include "child/options.h"
#include "child/report.h"
#include "child/sandbox.h"
#include "child/write_all.h"
#include "problem.h"

namespace {

using namespace Translation;

constexpr int EXIT_USAGE = 2;
constexpr int EXIT_INPUT = 4;
constexpr int EXIT_FAILED = 5;

bool isInputProblem(Problem problem) {
    return problem != Problem::limit && problem != Problem::died && problem != Problem::notStarted;
}

// Tells of a failure where the caller listens: in the report, else on the standard error output.
int fail(const Options& options, Report& report, Problem problem, const std::string& message) {
    if (options.report < 0) writeAll(STDERR_FILENO, message + "\n");
    Report::Line(report, "error").text("category", problemName(problem)).text("message", message);
    return isInputProblem(problem) ? EXIT_INPUT : EXIT_FAILED;
}

int run(const Options& options, Report& report) {
    std::vector<int> writable = {options.output, STDERR_FILENO};
    if (options.report >= 0) writable.push_back(options.report);
    if (!enterSandbox(writable)) {
        return fail(
            options, report, Problem::notStarted,
            "\"" + options.scene + "\" was not translated: the process cannot be protected (" + strerror(errno) + ").");
    }
    try {
        translateScene(options, report);
    } catch (const Failure& failure) {
        return fail(options, report, failure.problem, failure.message);
    } catch (const std::bad_alloc&) {
        return fail(
            options, report, Problem::limit,
            "The translation of \"" + options.scene + "\" was stopped: it needed more memory than it may have.");
    } catch (const std::exception& other) {
        return fail(options, report, Problem::damaged, "\"" + options.scene + "\" is damaged: " + other.what() + ".");
    }
    const Report::Line done(report, "done");
    return 0;
}

}  // namespace

int main(int count, char** arguments) {
    Options options;
    std::string problem;
    if (!parseOptions(count, arguments, options, problem)) {
        std::fprintf(stderr, "kelmo-translate: %s\n%s", problem.c_str(), USAGE);
        return EXIT_USAGE;
    }
    if (options.help) {
        std::fputs(USAGE, stdout);
        return 0;
    }
    Report report(options.report);
    // Ended at once: nothing is left to be done, and the exit handlers of libraries may want what is refused.
    _exit(run(options, report));
}
