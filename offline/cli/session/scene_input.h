// Brings a scene into the host: an offline scene as it is, an export of a DCC by way of the translating process.
#pragma once

#include <string>
#include <vector>

#include "session/host.h"
#include "session/installation.h"

// Whether the file has to be translated: it does not call itself an offline scene, by name or first line.
bool isExport(const std::string& path);

// Throws Failure: exitInput when the scene cannot be read, exitTranslation when the translating process died,
// exitUsage when kinds are to be deferred in a scene that is none of a DCC. What the translation has to tell
// (units, axes, renamed nodes) goes to standard error.
// Gives the report of the translation (JSON Lines); empty when there was none.
std::string loadScene(Host& host, const Installation& place, const std::string& path, const std::string& deferKinds);
