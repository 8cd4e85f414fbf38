// kelmo-offline cat: a scene in the offline scene format, on standard output.
#include "commands.h"
#include "host.h"
#include "host_end.h"
#include "installation.h"
#include "scene_input.h"
#include "standard_output.h"

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
