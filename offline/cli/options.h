// The command line: what can be asked of the program, and its reading. A wrong command line is a Failure
// with exitUsage whose message names the command, the argument and, where there is one, the nearest right word.
#pragma once

#include <optional>
#include <string>
#include <vector>

struct RunOptions {
    std::string scene;
    std::string script;
    std::vector<std::string> arguments;  // the script's
    std::string output;                  // empty: nothing is saved
    bool dryRun = false;
    std::vector<std::string> types;
    std::string defer;
    bool json = false;
};

struct CatOptions {
    std::string scene;
    std::vector<std::string> types;
    std::string defer;
};

struct InfoOptions {
    std::string type;  // empty: all types
    std::vector<std::string> types;
    bool json = false;
};

// Exactly one of the four is there.
struct Options {
    std::optional<std::string> text;  // a help or version text to be shown
    std::optional<RunOptions> run;
    std::optional<CatOptions> cat;
    std::optional<InfoOptions> info;
};

Options readOptions(int argc, char** argv);
