#include "core/catalogue/catalogue.h"

#include "core/base/error_maker.h"
#include "core/base/nearest_name.h"
#include "core/catalogue/type_reader.h"
#include "core/files/files.h"

namespace Offline {

using KUtils::ErrorRecord;

ErrorRecord* Catalogue::addFolder(const char* directory) {
    std::vector<std::string> files;
    std::string reason;
    if (!listFiles(directory, ".json", files, reason))
        return makeError(directory, nullptr, "the folder of plugin types cannot be read: %s", reason.c_str());
    for (const std::string& file : files) {
        const std::string path = std::string(directory) + '/' + file;
        std::string text;
        if (!readWholeFile(path.c_str(), text, reason))
            return makeError(path.c_str(), nullptr, "the file cannot be read: %s", reason.c_str());
        if (ErrorRecord* error = addText(text.data(), text.size(), path.c_str())) return error;
    }
    return nullptr;
}

ErrorRecord* Catalogue::addText(const char* text, std::size_t length, const char* shownName) {
    std::string problem;
    std::vector<std::unique_ptr<PluginType>> added = readTypes(text, length, problem);
    if (!problem.empty()) {
        ErrorRecord* cause = makeError(nullptr, nullptr, "%s", problem.c_str());
        return makeError(shownName, cause, "the plugin types cannot be read");
    }
    for (auto& type : added) add(std::move(type));
    return nullptr;
}

void Catalogue::add(std::unique_ptr<PluginType> type) {
    PluginType* added = type.get();
    types.push_back(std::move(type));
    const auto inserted = placeByName.emplace(added->typeName(), order.size());
    if (inserted.second) {
        order.push_back(added);
    } else {
        order[inserted.first->second] = added;
    }
}

PluginType* Catalogue::find(std::string_view name) const {
    const auto found = placeByName.find(name);
    return found != placeByName.end() ? order[found->second] : nullptr;
}

const char* Catalogue::nearest(const char* name) const {
    NearestName nearest(name);
    for (PluginType* type : order) nearest.offer(type->getTypeName());
    return nearest.best();
}

}  // namespace Offline
