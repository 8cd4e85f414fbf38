#include "session/installation.h"

#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>

#include "failure.h"

Installation Installation::find() {
    char program[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", program, sizeof program - 1);
    if (length < 0) {
        throw Failure(exitInstallation, std::string("cannot tell where the program stands: ") + strerror(errno));
    }
    std::string root(program, static_cast<size_t>(length));
    for (int level = 0; level < 2; ++level) root.erase(root.rfind('/'));

    Installation place;
    place.root = root;
    place.hostLibrary = root + "/plug-ins/kelmoformaya.mll";
    place.pythonFolder = root + "/python";
    place.translator = root + "/libexec/kelmo-translate";
    // What would be missed late, and with other words. The translator is missed only by who needs it.
    for (const std::string& part : {place.hostLibrary, root + "/share/kelmo-offline/types", root + "/python/kelmo"}) {
        if (access(part.c_str(), R_OK) != 0) {
            throw Failure(exitInstallation,
                          "the installation is not complete: \"" + part + "\" cannot be read: " + strerror(errno));
        }
    }
    return place;
}
