#include "fake_system.h"

#include "host/error_text.h"
#include "host/system/system.h"

using namespace KUtils;

FakeSystem fakeSystem;

namespace {

class FakeManager final : public HostPluginManager {
  public:
    Plugin* findPlugin(const char*) override { return nullptr; }
    Plugin* createPlugin(const char*, const char*, bool&, bool, bool, bool) override { return nullptr; }
    void deletePlugin(Plugin*, bool) override {}
    int beginScriptAccess() override {
        fakeSystem.log += "begin ";
        return 1;
    }
    int endScriptAccess() override {
        fakeSystem.log += "end ";
        return 1;
    }
};

FakeManager manager;
SceneList scenes;

HostPluginManager* giveManager() { return &manager; }
SceneList* giveScenes() { return &scenes; }
Plugin* exportNothing(const char*) { return nullptr; }
void printNothing(const char*) {}

}  // namespace

void resetFakeSystem() {
    fakeSystem = FakeSystem();
    fakeSystem.environment["KELMO_FOR_MAYA2020_MAIN"] = "/root";
    fakeSystem.symbols["getPluginManager"] = reinterpret_cast<void*>(giveManager);
    fakeSystem.symbols["getScenes"] = reinterpret_cast<void*>(giveScenes);
    for (const char* name : {"exportTexture", "exportMaterial", "exportCamera", "exportNode"}) {
        fakeSystem.symbols[name] = reinterpret_cast<void*>(exportNothing);
    }
    fakeSystem.symbols["printWarning"] = reinterpret_cast<void*>(printNothing);
}

namespace KUtils::Python {

SharedText* readEnvironment(const char* name) {
    const std::string& value = fakeSystem.environment[name];
    return value.empty() ? nullptr : makeSharedText(value.c_str());
}

LibraryHandle loadLib(const char* path, ErrorRecord** error) {
    fakeSystem.log += "load:" + std::string(path) + " ";
    if (fakeSystem.atLoading != nullptr) fakeSystem.atLoading();
    if (fakeSystem.loads) return &fakeSystem;
    if (fakeSystem.errorRecord)
        *error = makeErrorRecord("loadLib", 126, nullptr, "LoadLibrary failed (%i): %s", 126, "gone");
    return nullptr;
}

void* findSymbol(LibraryHandle, const char* name) {
    fakeSystem.log += std::string(name) + " ";
    return fakeSystem.symbols[name];
}

void freeLibrary(LibraryHandle library) { fakeSystem.log += library == &fakeSystem ? "free " : "free? "; }

}  // namespace KUtils::Python
