// A host variant's way to the full host: each of its exports is handed on to the export of the same name
// in the staged plug-in, so that both work on the same state.
#pragma once

#include <string>

#include "host/export.h"
#include "host/system/process.h"
#include "kelmo/scene/host_exports.h"
#include "support/library.h"

namespace variant {

// The full host's export, or null when the full host cannot be loaded.
template <class Function>
Function forwarded(const char* name) {
    // From BUILD/tests/roots/VARIANT/plug-ins to BUILD/stage/plug-ins.
    static void* const host = [] {
        std::string error;
        return support::openLibrary(Offline::ownFolder() + "/../../../../stage/plug-ins/kelmoformaya.mll", error);
    }();
    return host != nullptr ? reinterpret_cast<Function>(support::findSymbol(host, name)) : nullptr;
}

}  // namespace variant

// What a variant's source is made of: one line for each export that it has.
#define FORWARD_getPluginManager                                                                        \
    extern "C" OFFLINE_EXPORT KUtils::HostPluginManager* getPluginManager() {                           \
        return variant::forwarded<KUtils::GetPluginManagerFunction>(KUtils::HOST_GET_PLUGIN_MANAGER)(); \
    }
#define FORWARD_getScenes                                                                \
    extern "C" OFFLINE_EXPORT KUtils::SceneList* getScenes() {                           \
        return variant::forwarded<KUtils::GetScenesFunction>(KUtils::HOST_GET_SCENES)(); \
    }
#define FORWARD_EXPORT(name)                                            \
    extern "C" OFFLINE_EXPORT KUtils::Plugin* name(const char* node) {  \
        return variant::forwarded<KUtils::ExportFunction>(#name)(node); \
    }
#define FORWARD_exportTexture FORWARD_EXPORT(exportTexture)
#define FORWARD_exportMaterial FORWARD_EXPORT(exportMaterial)
#define FORWARD_exportCamera FORWARD_EXPORT(exportCamera)
#define FORWARD_exportNode FORWARD_EXPORT(exportNode)
#define FORWARD_printWarning                                                                   \
    extern "C" OFFLINE_EXPORT void printWarning(const char* message) {                         \
        variant::forwarded<KUtils::PrintWarningFunction>(KUtils::HOST_PRINT_WARNING)(message); \
    }

// An export that is there and answers null.
#define NULL_getPluginManager \
    extern "C" OFFLINE_EXPORT KUtils::HostPluginManager* getPluginManager() { return nullptr; }
#define NULL_getScenes \
    extern "C" OFFLINE_EXPORT KUtils::SceneList* getScenes() { return nullptr; }
