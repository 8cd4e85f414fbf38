// kelmo-offline run: a script on a scene, what it changed, and the changed scene.
#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdio>

#include "commands.h"
#include "output/output_file.h"
#include "output/progress.h"
#include "output/standard_output.h"
#include "session/host.h"
#include "session/host_end.h"
#include "session/installation.h"
#include "session/scene_input.h"
#include "session/script.h"
#include "text/change_text.h"
#include "text/json_text.h"

namespace {

// While one lives, what is printed to standard output goes to standard error: with --json, standard output
// holds the JSON alone.
class OutputAside {
  public:
    explicit OutputAside(bool wanted) {
        if (!wanted) return;
        std::fflush(stdout);
        kept_ = dup(STDOUT_FILENO);
        dup2(STDERR_FILENO, STDOUT_FILENO);
    }
    ~OutputAside() {
        if (kept_ < 0) return;
        std::fflush(stdout);
        dup2(kept_, STDOUT_FILENO);
        close(kept_);
    }
    OutputAside(const OutputAside&) = delete;
    OutputAside& operator=(const OutputAside&) = delete;

  private:
    int kept_ = -1;
};

const char* resultName(const ScriptEnd& end) {
    if (end.interrupted) return "interrupted";
    if (end.left) return end.succeeded ? "done" : "left";
    return end.succeeded ? "done" : "raised";
}

// What Python prints when a program leaves with a text, and a line for a number, which the exit code cannot show.
void reportExit(const ScriptEnd& end) {
    if (end.succeeded || !end.left) return;
    if (end.exitIsNumber) {
        writeError(fmt::format("kelmo-offline: the script left with {}\n", end.exitValue));
    } else {
        writeError(end.exitValue + "\n");
    }
}

void printText(Host& host, const std::string& saved, bool held) {
    ChangeText text;
    host.changes([&text](const std::string& line) { writeOutput(text.add(line)); });
    writeOutput(text.summary() + "\n");
    if (!saved.empty()) writeOutput("saved " + quoted(saved) + "\n");
    if (held) writeOutput("not saved (-n)\n");
}

// JSON Lines as the elements of an array.
std::string elements(const std::string& lines) {
    std::string text;
    for (size_t begin = 0; begin < lines.size();) {
        const size_t end = std::min(lines.find('\n', begin), lines.size());
        text += (text.empty() ? "\n" : ",\n") + lines.substr(begin, end - begin);
        begin = end + 1;
    }
    return text;
}

void printJson(Host& host, const RunOptions& options, const ScriptEnd& end, const std::string& saved,
               const std::string& translation) {
    writeOutput(fmt::format(R"({{"scene":{},"script":{},"result":"{}","saved":{},"changes":[)", quoted(options.scene),
                            quoted(options.script), resultName(end), saved.empty() ? "null" : quoted(saved)));
    std::string before = "\n";
    host.changes([&before](const std::string& line) {
        writeOutput(before + line);
        before = ",\n";
    });
    writeOutput("],\n\"warnings\":[");
    before = "";
    host.warnings([&before](const std::string& text) {
        writeOutput(before + quoted(text));
        before = ",";
    });
    writeOutput("],\n\"translation\":[" + elements(translation) + "]}\n");
}

}  // namespace

ExitCode runCommand(const RunOptions& options) {
    const Installation place = Installation::find();
    checkScript(options.script);
    const std::string output = absolutePath(options.output);
    if (!options.output.empty() && !options.dryRun) {
        checkOutput(options.output, options.scene, isExport(options.scene), options.script);
    }
    Host host(place.hostLibrary);
    for (const std::string& folder : options.types) host.addTypes(folder);
    const std::string translation = loadScene(host, place, options.scene, options.defer);
    host.snapshot();

    ScriptEnd end;
    {
        const OutputAside aside(options.json);
        end = runScript({options.script, options.arguments}, place);
    }
    reportExit(end);

    std::string saved;
    if (end.succeeded && !options.output.empty() && !options.dryRun) {
        const Progress progress("saving " + options.output);
        saveScene(host, output);
        saved = options.output;
    }
    if (options.json) {
        printJson(host, options, end, saved, translation);
    } else if (end.succeeded) {
        printText(host, saved, options.dryRun && !options.output.empty());
    }
    flushOutput();
    endHost(host, end.succeeded);

    if (end.interrupted) {
        // Python has put its own handler away; the caller sees that Ctrl-C ended the program.
        std::signal(SIGINT, SIG_DFL);
        std::raise(SIGINT);
    }
    return end.succeeded ? exitDone : exitScript;
}
