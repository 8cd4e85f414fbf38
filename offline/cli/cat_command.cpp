// kelmo-offline cat: a scene in the offline scene format, on standard output.
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "commands.h"
#include "host.h"
#include "host_end.h"
#include "installation.h"
#include "scene_input.h"

ExitCode catCommand(const CatOptions& options) {
    const Installation place = Installation::find();
    Host host(place.hostLibrary);
    for (const std::string& folder : options.types) host.addTypes(folder);
    loadScene(host, place, options.scene, options.defer);
    host.saveText([](const std::string& text) {
        if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
            throw Failure(exitOutput, std::string("cannot write to standard output: ") + std::strerror(errno));
        }
    });
    endHost(host);
    return exitDone;
}
