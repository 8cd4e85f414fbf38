#include "options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "failure.h"
#include "help_texts.h"
#include "nearest.h"
#include "script.h"

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
void checkExtras(CLI::App& app, const std::string& command, bool takesScript) {
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
                        (takesScript ? "; what is meant for the script stands after --" : ""));
}

std::string versionText() {
    return std::string(programName) + " " + KELMO_OFFLINE_VERSION + " (Python " + pythonVersion() +
           ", scene format 1)\n";
}

// The help of the command that was asked for.
std::string helpText(const CLI::App& app) {
    for (const CLI::App* command : app.get_subcommands()) return command->help(std::string(programName));
    return app.help();
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

    CLI::App app{"Runs post-translate scripts on scenes, without the host application.", programName};
    app.footer(programFooter);
    bool version = false;
    app.add_flag("--version", version, "Print the version and exit");
    app.allow_extras();

    RunOptions run;
    CLI::App* runApp = app.add_subcommand("run", "Run a script on a scene and list what it changed");
    runApp->footer(runFooter)->allow_extras();
    runApp->add_option("SCENE", run.scene, "The scene or export to run on")->required();
    runApp->add_option("SCRIPT", run.script, "The Python 2.7 script")->required();
    runApp->add_option("-o,--output", run.output, "Save the changed scene to this file")->type_name("OUT");
    runApp->add_flag("-n,--dry-run", run.dryRun, "Save nothing, even with -o");
    runApp->add_option("--types", run.types, "A folder with plugin types of your own (JSON)")
        ->type_name("DIR")
        ->expected(1)
        ->take_all();
    runApp->add_option("--defer", run.defer, "Kinds to leave to export calls: materials,textures,cameras,nodes")
        ->type_name("KINDS");
    runApp->add_flag("--json", run.json, "List the changes as JSON");

    CatOptions cat;
    CLI::App* catApp = app.add_subcommand("cat", "Print a scene in the offline scene format");
    catApp->footer(catFooter)->allow_extras();
    catApp->add_option("SCENE", cat.scene, "The scene or export to print")->required();
    catApp->add_option("--types", cat.types, "A folder with plugin types of your own (JSON)")
        ->type_name("DIR")
        ->expected(1)
        ->take_all();
    catApp->add_option("--defer", cat.defer, "Kinds to leave to export calls: materials,textures,cameras,nodes")
        ->type_name("KINDS");

    InfoOptions info;
    CLI::App* infoApp = app.add_subcommand("info", "Show the plugin types");
    infoApp->footer(infoFooter)->allow_extras();
    infoApp->add_option("TYPE", info.type, "A plugin type");
    infoApp->add_option("--types", info.types, "A folder with plugin types of your own (JSON)")
        ->type_name("DIR")
        ->expected(1)
        ->take_all();
    infoApp->add_flag("--json", info.json, "Print JSON");

    Options options;
    const auto chosen = [&]() -> std::string { return *runApp ? "run" : *catApp ? "cat" : *infoApp ? "info" : ""; };
    try {
        std::vector<std::string> reversed(words.rbegin(), words.rend());
        app.parse(reversed);
    } catch (const CLI::CallForHelp&) {
        options.text = helpText(app);
        return options;
    } catch (const CLI::ParseError& problem) {
        if (CLI::App* command = *runApp ? runApp : *catApp ? catApp : *infoApp ? infoApp : nullptr) {
            checkExtras(*command, chosen(), command == runApp);
        }
        refuse(chosen(), problem.what());
    }

    if (version) {
        options.text = versionText();
        return options;
    }
    if (!*runApp && !*catApp && !*infoApp) {
        const std::vector<std::string> extras = app.remaining(false);
        if (extras.empty()) refuse("", "a command is missing: run, cat or info");
        if (extras.front()[0] == '-') checkExtras(app, "", false);
        refuse("", "unknown command \"" + extras.front() + "\"" + suggestion(extras.front(), {"run", "cat", "info"}));
    }
    if (*runApp) {
        checkExtras(*runApp, "run", true);
        if (runApp->count("--defer")) checkDefer("run", run.defer);
        run.arguments = rest;
        options.run = run;
        return options;
    }
    if (!rest.empty()) refuse(chosen(), "unexpected argument \"" + rest.front() + "\"");
    if (*catApp) {
        checkExtras(*catApp, "cat", false);
        if (catApp->count("--defer")) checkDefer("cat", cat.defer);
        options.cat = cat;
    } else {
        checkExtras(*infoApp, "info", false);
        options.info = info;
    }
    return options;
}
