// Where the changed scene is saved. Looked at before the script runs, so that a long run does not end in a
// file that cannot be written.
#pragma once

#include <string>

#include "session/host.h"

// The path as it is to be understood from any folder: a script may change the working folder.
std::string absolutePath(const std::string& path);

// Throws Failure: exitOutput when `path` cannot be written, exitUsage when it is the script or an export.
void checkOutput(const std::string& path, const std::string& scene, bool sceneIsExport, const std::string& script);

// Saves the main scene: a regular file is written aside and renamed, what is no regular file (a pipe,
// /dev/stdout) gets the text directly. Signals wait until the file is whole.
void saveScene(Host& host, const std::string& path);
