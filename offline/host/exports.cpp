// The functions that the module finds in the host by name.
#include "core/base/call_line.h"
#include "host/export.h"
#include "host/host.h"
#include "kelmo/scene/host_exports.h"

using Offline::CallLine;
using Offline::Host;

extern "C" {

OFFLINE_EXPORT KUtils::HostPluginManager* getPluginManager() {
    Host& host = Host::get();
    host.noteCall("getPluginManager");
    if (Offline::isObserved()) CallLine("host.getPluginManager()");
    return &host.manager;
}

OFFLINE_EXPORT KUtils::SceneList* getScenes() {
    Host& host = Host::get();
    host.noteCall("getScenes");
    if (Offline::isObserved()) CallLine("host.getScenes()");
    return &host.scenes;
}

OFFLINE_EXPORT KUtils::Plugin* exportTexture(const char* nodeName) {
    return Host::get().exportNode("exportTexture", nodeName, "texture");
}

OFFLINE_EXPORT KUtils::Plugin* exportMaterial(const char* nodeName) {
    return Host::get().exportNode("exportMaterial", nodeName, "material");
}

OFFLINE_EXPORT KUtils::Plugin* exportCamera(const char* nodeName) {
    return Host::get().exportNode("exportCamera", nodeName, "camera");
}

OFFLINE_EXPORT KUtils::Plugin* exportNode(const char* nodeName) {
    return Host::get().exportNode("exportNode", nodeName, nullptr);
}

OFFLINE_EXPORT void printWarning(const char* message) {
    Host& host = Host::get();
    host.noteCall("printWarning");
    if (Offline::isObserved()) CallLine("host.printWarning(").quoted(message).text(")");
    host.warnings.add(message != nullptr ? message : "");
}

}  // extern "C"
