// How the program ends, and the one exception by which a command says that it cannot go on. The message
// is a finished text for the user; main() prints it after the program's name and leaves with the code.
#pragma once

#include <stdexcept>
#include <string>

enum ExitCode : int {
    exitDone = 0,
    exitScript = 1,        // the script raised, or left with a value that says failure
    exitUsage = 2,         // the command line is wrong
    exitOutput = 3,        // a result could not be written
    exitInput = 4,         // a scene, script or catalogue could not be read
    exitTranslation = 5,   // the translating process died, or went over its limits
    exitInstallation = 6,  // the program's own files are missing or damaged, or no memory
};

class Failure : public std::runtime_error {
  public:
    Failure(ExitCode code, const std::string& message) : std::runtime_error(message), code_(code) {}
    ExitCode code() const { return code_; }

  private:
    ExitCode code_;
};
