// Runs the user's script in an embedded Python 2.7, as the host application would: under its own file name, as
// __main__, with arguments of its own. What it prints goes where Python sends it; an exception is reported by
// Python's own traceback on standard error.
#pragma once

#include <string>
#include <vector>

#include "session/installation.h"

struct Script {
    std::string path;
    std::vector<std::string> arguments;
};

struct ScriptEnd {
    bool succeeded = false;
    bool interrupted = false;  // Ctrl-C ended it
    bool left = false;         // it left by sys.exit()
    bool exitIsNumber = false;
    std::string exitValue;  // what it left with when that says failure, as text
};

// Throws Failure with exitInput when the file cannot be read.
void checkScript(const std::string& path);

// Starts the interpreter, runs the script, and finishes the interpreter (threads, exit handlers).
ScriptEnd runScript(const Script& script, const Installation& place);

// "2.7.18"
std::string pythonVersion();
