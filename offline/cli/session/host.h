// The offline host, driven through its control table. Every call that fails throws Failure with the host's
// own account of the reason. One Host a process; the host's state outlives the object, the library is never
// unloaded.
#pragma once

#include <functional>
#include <string>

#include "failure.h"
#include "host/control.h"

class Host {
  public:
    using Lines = std::function<void(const std::string&)>;

    // Loads the library; throws with exitInstallation.
    explicit Host(const std::string& library);
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    void addTypes(const std::string& folder);

    // One JSON object for each type of the catalogue. Gives false when the named type does not exist.
    bool types(const char* typeName, const Lines& each) const;

    // Reads an offline scene; messages call it by `shownName`.
    void open(const std::string& path, const std::string& shownName);

    // Writes the scene aside and then renames it to `path`.
    void save(const std::string& path);
    // Hands the scene to `each` in pieces.
    void saveText(const Lines& each);

    void snapshot();
    // What has changed since snapshot(), one JSON object a change.
    void changes(const Lines& each);
    void warnings(const Lines& each) const;

    // Frees what the host holds. Gives false when something is left alive, and the account in either case.
    bool end(std::string& report);

  private:
    void check(int result, ExitCode code) const;

    const OfflineControl* control_ = nullptr;
};
