#include "options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "failure.h"
#include "nearest.h"
#include "session/script.h"
#include "text/help_texts.h"

namespace {

constexpr const char* programName = "kelmo-offline";

const std::vector<std::string> deferKinds = {"materials", "textures", "cameras", "nodes"};

[[noreturn]] void refuse(const std::string& command, const std::string& message) {
    const std::string full = command.empty() ? programName : std::string(programName) + " " + command;
    throw Failure(exitUsage, message + "\n\"" + full + " --help\" tells how it is used.");
}

// Every kind of a comma-separated list has to be one that can be deferred.
void checkDefer(const std::string& command, const std::string& kinds) {
    size_t begin = 0;
    while (begin <= kinds.size()) {
        const size_t end = std::min(kinds.find(',', begin), kinds.size());
        const std::string kind = kinds.substr(begin, end - begin);
        if (std::find(deferKinds.begin(), deferKinds.end(), kind) == deferKinds.end()) {
            refuse(command, "--defer: \"" + kind + "\" is not one of materials, textures, cameras, nodes" +
                                suggestion(kind, deferKinds));
        }
        begin = end + 1;
    }
}

// Words that no option or argument took.
void checkExtras(const CLI::App& app, const std::string& command) {
    const std::vector<std::string> extras = app.remaining(false);
    if (extras.empty()) return;
    const std::string& word = extras.front();
    if (word.size() > 1 && word[0] == '-') {
        std::vector<std::string> known;
        for (const CLI::Option* option : app.get_options()) {
            for (const std::string& name : option->get_lnames()) known.push_back("--" + name);
        }
        refuse(command, "unknown option \"" + word + "\"" + suggestion(word.substr(0, word.find('=')), known));
    }
    refuse(command, "unexpected argument \"" + word + "\"" +
                        (command == "run" ? "; what is meant for the script stands after --" : ""));
}

std::string versionText() {
    return std::string(programName) + " " + KELMO_OFFLINE_VERSION + " (Python " + pythonVersion() +
           ", scene format 1)\n";
}

// The options as CLI11 fills them in.
struct CommandLine {
    CLI::App app{"Runs post-translate scripts on scenes, without the host application.", programName};
    CLI::App* run = app.add_subcommand("run", "Run a script on a scene and list what it changed");
    CLI::App* cat = app.add_subcommand("cat", "Print a scene in the offline scene format");
    CLI::App* info = app.add_subcommand("info", "Show the plugin types");
    bool version = false;
    RunOptions runOptions;
    CatOptions catOptions;
    InfoOptions infoOptions;

    CommandLine();
    // The command that was given; null when none was.
    const CLI::App* chosen() const { return *run ? run : *cat ? cat : *info ? info : nullptr; }
    std::string chosenName() const { return chosen() ? chosen()->get_name() : std::string(); }

  private:
    static void addScene(CLI::App& command, std::string& scene, const char* what) {
        command.add_option("SCENE", scene, what)->required();
    }
    static void addTypes(CLI::App& command, std::vector<std::string>& types) {
        command.add_option("--types", types, "A folder with plugin types of your own (JSON)")
            ->type_name("DIR")
            ->expected(1)
            ->allow_extra_args(false)
            ->take_all();
    }
    static void addDefer(CLI::App& command, std::string& kinds) {
        command.add_option("--defer", kinds, "Kinds to leave to export calls: materials,textures,cameras,nodes")
            ->type_name("KINDS");
    }
};

CommandLine::CommandLine() {
    app.footer(programFooter)->allow_extras();
    app.add_flag("--version", version, "Print the version and exit");

    run->footer(runFooter)->allow_extras();
    addScene(*run, runOptions.scene, "The scene or export to run on");
    run->add_option("SCRIPT", runOptions.script, "The Python 2.7 script")->required();
    run->add_option("-o,--output", runOptions.output, "Save the changed scene to this file")->type_name("OUT");
    run->add_flag("-n,--dry-run", runOptions.dryRun, "Save nothing, even with -o");
    addTypes(*run, runOptions.types);
    addDefer(*run, runOptions.defer);
    run->add_flag("--json", runOptions.json, "List the changes as JSON");

    cat->footer(catFooter)->allow_extras();
    addScene(*cat, catOptions.scene, "The scene or export to print");
    addTypes(*cat, catOptions.types);
    addDefer(*cat, catOptions.defer);

    info->footer(infoFooter)->allow_extras();
    info->add_option("TYPE", infoOptions.type, "A plugin type");
    addTypes(*info, infoOptions.types);
    info->add_flag("--json", infoOptions.json, "Print JSON");
}

// Nothing was asked for that the program knows.
[[noreturn]] void refuseCommand(const CommandLine& line) {
    const std::vector<std::string> extras = line.app.remaining(false);
    if (extras.empty()) refuse("", "a command is missing: run, cat or info");
    if (extras.front()[0] == '-') checkExtras(line.app, "");
    refuse("", "unknown command \"" + extras.front() + "\"" + suggestion(extras.front(), {"run", "cat", "info"}));
}

// Gives the text of --help or --version when that was asked for.
std::optional<std::string> parse(CommandLine& line, const std::vector<std::string>& words) {
    try {
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        line.app.parse(reversed);
    } catch (const CLI::CallForHelp&) {
        return line.chosen() ? line.chosen()->help(programName) : line.app.help();
    } catch (const CLI::ParseError& problem) {
        if (line.chosen()) checkExtras(*line.chosen(), line.chosenName());
        refuse(line.chosenName(), problem.what());
    }
    if (line.version) return versionText();
    return std::nullopt;
}

}  // namespace

Options readOptions(int argc, char** argv) {
    // What stands after the first -- is the script's, whatever it looks like.
    std::vector<std::string> words(argv + 1, argv + argc), rest;
    const auto separator = std::find(words.begin(), words.end(), "--");
    if (separator != words.end()) {
        rest.assign(separator + 1, words.end());
        words.erase(separator, words.end());
    }

    CommandLine line;
    Options options;
    options.text = parse(line, words);
    if (options.text) return options;
    if (!line.chosen()) refuseCommand(line);
    checkExtras(*line.chosen(), line.chosenName());
    if (line.run->count("--defer")) checkDefer("run", line.runOptions.defer);
    if (line.cat->count("--defer")) checkDefer("cat", line.catOptions.defer);

    if (*line.run) {
        if (line.run->count("--output") && line.runOptions.output.empty()) refuse("run", "--output: the name is empty");
        options.run = line.runOptions;
        options.run->arguments = rest;
        return options;
    }
    if (!rest.empty()) refuse(line.chosenName(), "unexpected argument \"" + rest.front() + "\"");
    if (*line.cat) options.cat = line.catOptions;
    if (*line.info) {
        if (line.info->count("TYPE") && line.infoOptions.type.empty()) refuse("info", "TYPE: the name is empty");
        options.info = line.infoOptions;
    }
    return options;
}
