#include "host_table.h"

#include "support/library.h"

namespace offlinehost {

namespace {

constexpr char ROOT_VARIABLE[] = "KELMO_FOR_MAYA2020_MAIN";
constexpr char PLUGIN_UNDER_ROOT[] = "/plug-ins/kelmoformaya.mll";

const OfflineControl* loadedTable = nullptr;

// Never destroyed: a call at the interpreter's end may still ask.
std::string& loadedPath() {
    static std::string& path = *new std::string;
    return path;
}

}  // namespace

const std::string& hostPath() { return loadedPath(); }

const OfflineControl* hostTable(const std::string& path, std::string& error) {
    if (loadedTable != nullptr && (path.empty() || path == hostPath())) return loadedTable;
    if (loadedTable != nullptr) {
        error = "the host is loaded already, from " + hostPath();
        return nullptr;
    }
    std::string wanted = path;
    if (wanted.empty()) {
        const std::string root = support::environment(ROOT_VARIABLE);
        if (root.empty()) {
            error = std::string(ROOT_VARIABLE) + " is not set, and no path was given";
            return nullptr;
        }
        wanted = root + PLUGIN_UNDER_ROOT;
    }
    std::string reason;
    void* library = support::openLibrary(wanted, reason);
    if (library == nullptr) {
        error = "could not load " + wanted + ": " + reason;
        return nullptr;
    }
    const auto control = reinterpret_cast<OfflineControlFunction>(support::findSymbol(library, OFFLINE_CONTROL_EXPORT));
    const OfflineControl* table = control != nullptr ? control(OFFLINE_CONTROL_VERSION) : nullptr;
    if (table == nullptr) {
        error = wanted + " is no offline host of a version that is known here";
        return nullptr;
    }
    loadedTable = table;
    loadedPath() = wanted;
    return loadedTable;
}

}  // namespace offlinehost
