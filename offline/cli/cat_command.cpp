// kelmo-offline cat: a scene in the offline scene format, on standard output.
#include "commands.h"
#include "output/standard_output.h"
#include "session/host.h"
#include "session/host_end.h"
#include "session/installation.h"
#include "session/scene_input.h"

ExitCode catCommand(const CatOptions& options) {
    const Installation place = Installation::find();
    Host host(place.hostLibrary);
    for (const std::string& folder : options.types) host.addTypes(folder);
    loadScene(host, place, options.scene, options.defer);
    host.saveText(writeOutput);
    flushOutput();
    endHost(host, true);
    return exitDone;
}
