// kelmo-offline info: the catalogue of plugin types.
#include <vector>

#include "commands.h"
#include "nearest.h"
#include "output/standard_output.h"
#include "session/host.h"
#include "session/installation.h"
#include "text/catalogue_text.h"

namespace {

std::string jsonArray(const std::vector<std::string>& lines) {
    std::string text = "[";
    const char* before = "\n";
    for (const std::string& line : lines) {
        text += before + line;
        before = ",\n";
    }
    return text + "\n]\n";
}

}  // namespace

ExitCode infoCommand(const InfoOptions& options) {
    Host host(Installation::find().hostLibrary);
    for (const std::string& folder : options.types) host.addTypes(folder);

    std::vector<std::string> all;
    host.types(nullptr, [&all](const std::string& line) { all.push_back(line); });
    if (options.type.empty()) {
        writeOutput(options.json ? jsonArray(all) : describeTypes(all));
        return exitDone;
    }
    std::string type;
    if (!host.types(options.type.c_str(), [&type](const std::string& line) { type = line; })) {
        throw Failure(exitUsage,
                      "there is no plugin type \"" + options.type + "\"" + suggestion(options.type, typeNames(all)));
    }
    writeOutput(options.json ? type + "\n" : describeType(type));
    return exitDone;
}
