// The three commands. Each gives the program's exit code, or throws Failure.
#pragma once

#include "failure.h"
#include "options.h"

ExitCode runCommand(const RunOptions& options);
ExitCode catCommand(const CatOptions& options);
ExitCode infoCommand(const InfoOptions& options);
