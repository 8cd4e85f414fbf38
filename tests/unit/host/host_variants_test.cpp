// The hosts that lack something: each has exactly what its name says, and works on the full host's state.
#include <cstring>
#include <string>

#include "host/control.h"
#include "kelmo/scene/host_exports.h"
#include "support/check.h"
#include "support/library.h"

namespace {

constexpr const char* EXPORTS[] = {
    KUtils::HOST_GET_PLUGIN_MANAGER, KUtils::HOST_GET_SCENES,    KUtils::HOST_EXPORT_TEXTURE,
    KUtils::HOST_EXPORT_MATERIAL,    KUtils::HOST_EXPORT_CAMERA, KUtils::HOST_EXPORT_NODE,
    KUtils::HOST_PRINT_WARNING,
};

void* openHost(const std::string& root) {
    std::string error;
    void* library = support::openLibrary(std::string(HOST_TEST_BUILD) + root + "/plug-ins/kelmoformaya.mll", error);
    CHECK_TEXT(error.c_str(), "");
    return library;
}

template <class Function>
Function exportOf(void* library, const char* name) {
    return reinterpret_cast<Function>(support::findSymbol(library, name));
}

}  // namespace

TEST_CASE(eachVariantLacksOneExport) {
    for (const char* missing : EXPORTS) {
        CHECK_ROW(missing);
        void* library = openHost(std::string("/tests/roots/without_") + missing);
        if (library == nullptr) continue;
        for (const char* name : EXPORTS)
            CHECK_EQ(support::findSymbol(library, name) != nullptr, std::strcmp(name, missing) != 0);
    }
}

TEST_CASE(theFullHostHasAllAndTheControlTable) {
    void* full = openHost("/stage");
    if (full == nullptr) return;
    for (const char* name : EXPORTS) {
        CHECK_ROW(name);
        CHECK(support::findSymbol(full, name) != nullptr);
    }
    CHECK_ROW(nullptr);
    const auto control = exportOf<OfflineControlFunction>(full, OFFLINE_CONTROL_EXPORT);
    CHECK(control != nullptr);
    if (control == nullptr) return;
    const OfflineControl* table = control(OFFLINE_CONTROL_VERSION);
    CHECK(table != nullptr && table->version == OFFLINE_CONTROL_VERSION && table->size == sizeof(OfflineControl));
    CHECK(control(OFFLINE_CONTROL_VERSION + 1) == nullptr);
    CHECK(control(0) == nullptr);
}

TEST_CASE(variantsShareTheStateOfTheFullHost) {
    void* full = openHost("/stage");
    void* silent = openHost("/tests/roots/without_printWarning");
    if (full == nullptr || silent == nullptr) return;
    CHECK(exportOf<KUtils::GetPluginManagerFunction>(silent, "getPluginManager")() ==
          exportOf<KUtils::GetPluginManagerFunction>(full, "getPluginManager")());
    CHECK(exportOf<KUtils::GetScenesFunction>(silent, "getScenes")() ==
          exportOf<KUtils::GetScenesFunction>(full, "getScenes")());
    for (const char* name : {"exportTexture", "exportMaterial", "exportCamera", "exportNode"}) {
        CHECK_ROW(name);
        CHECK(exportOf<KUtils::ExportFunction>(silent, name)("no such node") == nullptr);
    }
}

TEST_CASE(nullVariantsAnswerNull) {
    void* noManager = openHost("/tests/roots/null_manager");
    void* noScenes = openHost("/tests/roots/null_scenes");
    if (noManager == nullptr || noScenes == nullptr) return;
    CHECK(exportOf<KUtils::GetPluginManagerFunction>(noManager, "getPluginManager")() == nullptr);
    CHECK(exportOf<KUtils::GetScenesFunction>(noManager, "getScenes")() != nullptr);
    CHECK(exportOf<KUtils::GetPluginManagerFunction>(noScenes, "getPluginManager")() != nullptr);
    CHECK(exportOf<KUtils::GetScenesFunction>(noScenes, "getScenes")() == nullptr);
}

int main(int argc, char** argv) { return check::run(argc, argv); }
