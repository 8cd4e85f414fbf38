#include "host/bridge.h"

#include <cstdio>
#include <cstring>

#include "frame/problem.h"
#include "host/error_text.h"
#include "host/state.h"
#include "host/system/fallback_env_var.h"
#include "host/system/system.h"

namespace KUtils::Python {

namespace {

constexpr char ROOT_VARIABLE[] = "KELMO_FOR_MAYA2020_MAIN";
constexpr char DEPRECATED_ROOT_VARIABLE[] = "KELMO_FOR_MAYA2020_MAIN_x64";
constexpr char MISSING_ROOT[] = "<missing>";
constexpr char PLUGIN_FILE[] = "/plug-ins/kelmoformaya.mll";

// Leaves the module uninitialised; the record that it had.
SceneAccessState* takeState() {
    SceneAccessState* state = sceneAccessState;
    sceneAccessState = nullptr;
    return state;
}

void freeState(SceneAccessState* state) { kelmo_free(state, sizeof(SceneAccessState)); }

// Frees the library and the record and leaves the module uninitialised.
void discardState() {
    SceneAccessState* state = takeState();
    if (state->hostLibrary != nullptr) freeLibrary(state->hostLibrary);
    freeState(state);
}

// The two functions that are read before they are used, and the reserved field, stay as they were allocated.
SceneAccessState* makeState() {
    auto* state = static_cast<SceneAccessState*>(kelmo_malloc(sizeof(SceneAccessState)));
    if (state == nullptr) return nullptr;
    state->hostLibrary = nullptr;
    state->exportTextureFn = nullptr;
    state->exportMaterialFn = nullptr;
    state->exportCameraFn = nullptr;
    state->exportNodeFn = nullptr;
    state->printWarningFn = nullptr;
    state->hostManager = nullptr;
    state->mainScene = nullptr;
    state->fallbackOwnedParams = nullptr;
    state->sceneList = nullptr;
    return state;
}

// The path of the host plug-in, cut to 1023 characters.
void findHostPlugin(char (&path)[1024]) {
    FallbackEnvVar variable(ROOT_VARIABLE, DEPRECATED_ROOT_VARIABLE, MISSING_ROOT);
    const TextRef root(variable.resolve(nullptr));
    const char* folder = charactersOf(root.get());
    if (folder == nullptr || std::strcmp(folder, MISSING_ROOT) == 0) {
        throwError("MayaSceneAccessUtils: Could not find environment variable \"%s\" (or its fallback: \"%s\")",
                   ROOT_VARIABLE, DEPRECATED_ROOT_VARIABLE);
    }
    std::snprintf(path, sizeof path, "%s%s", folder, PLUGIN_FILE);
}

void loadHostPlugin(SceneAccessState& state) {
    char path[1024] = {};
    findHostPlugin(path);
    ErrorRecord* error = nullptr;
    state.hostLibrary = loadLib(path, &error);
    const ErrorRef reason(error);
    if (state.hostLibrary != nullptr) return;
    char text[1024];
    errorText(reason.get(), text, sizeof text);
    throwError("MayaSceneAccessUtils: Could not load library \"%s\": %s", path, text);
}

void checkSymbol(const void* address, const char* name) {
    if (address == nullptr) throwError("MayaSceneAccessUtils: Could not find symbol \"%s\".", name);
}

template <class Function>
void takeOptionalSymbol(LibraryHandle library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(findSymbol(library, name));
}

template <class Function>
void takeSymbol(LibraryHandle library, const char* name, Function& function) {
    takeOptionalSymbol(library, name, function);
    checkSymbol(reinterpret_cast<void*>(function), name);
}

void takeSymbols(SceneAccessState& state) {
    LibraryHandle library = state.hostLibrary;
    takeSymbol(library, HOST_GET_PLUGIN_MANAGER, state.getPluginManagerFn);
    takeSymbol(library, HOST_GET_SCENES, state.getScenesFn);
    takeSymbol(library, HOST_EXPORT_TEXTURE, state.exportTextureFn);
    takeSymbol(library, HOST_EXPORT_MATERIAL, state.exportMaterialFn);
    takeSymbol(library, HOST_EXPORT_CAMERA, state.exportCameraFn);
    takeSymbol(library, HOST_EXPORT_NODE, state.exportNodeFn);
    takeOptionalSymbol(library, HOST_PRINT_WARNING, state.printWarningFn);
    // A host without printWarning is accepted; what is checked here is getScenes, once more.
    checkSymbol(reinterpret_cast<void*>(state.getScenesFn), HOST_GET_SCENES);
}

void obtainHostObjects(SceneAccessState& state) {
    state.hostManager = state.getPluginManagerFn();
    state.sceneList = state.getScenesFn();
    if (state.hostManager == nullptr || state.sceneList == nullptr) {
        throwError("MayaSceneAccessUtils: Could not obtain plugin manager.");
    }
    state.hostManager->beginScriptAccess();
}

}  // namespace

bool startSceneAccess() {
    if (sceneAccessState != nullptr) discardState();
    sceneAccessState = makeState();
    if (sceneAccessState == nullptr) return false;
    try {
        loadHostPlugin(*sceneAccessState);
        takeSymbols(*sceneAccessState);
        obtainHostObjects(*sceneAccessState);
    } catch (const SceneAccessProblem&) {
        discardState();
        throw;
    } catch (...) {
        // What the library has raised can be of a type of its own, which must outlive the exception.
        freeState(takeState());
        throw;
    }
    return true;
}

void endSceneAccess() {
    if (sceneAccessState == nullptr) return;
    if (sceneAccessState->hostManager != nullptr) sceneAccessState->hostManager->endScriptAccess();
    discardState();
}

}  // namespace KUtils::Python
