// Where the program's own files stand. They are found from the program's own place, so the tree can be moved.
#pragma once

#include <string>

struct Installation {
    std::string root;          // the tree that holds bin/, plug-ins/, python/ ...
    std::string hostLibrary;   // plug-ins/kelmoformaya.mll
    std::string pythonFolder;  // what a script's sys.path begins with
    std::string translator;    // libexec/kelmo-translate

    // Throws Failure when the program cannot tell where it stands or a part of the tree is missing.
    static Installation find();
};
