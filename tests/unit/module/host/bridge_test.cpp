#include "host/bridge.h"

#include <cstddef>
#include <cstring>

#include "check.h"
#include "core/core_api.h"
#include "fake_system.h"
#include "frame/problem.h"
#include "host/state.h"
#include "host/system/fallback_env_var.h"
#include "params/shared_text.h"

using namespace KUtils;
using namespace KUtils::Python;

// The order of the state's fields.
#define FIELD(number, member) \
    static_assert(offsetof(SceneAccessState, member) == ((number)-1) * sizeof(void*), #member " stands elsewhere")
FIELD(1, hostLibrary);
FIELD(2, getPluginManagerFn);
FIELD(3, exportTextureFn);
FIELD(4, exportMaterialFn);
FIELD(5, exportCameraFn);
FIELD(6, exportNodeFn);
FIELD(7, getScenesFn);
FIELD(8, printWarningFn);
FIELD(9, hostManager);
FIELD(10, mainScene);
FIELD(11, fallbackOwnedParams);
FIELD(12, sceneList);
FIELD(13, reserved);

namespace {

constexpr char SYMBOLS[] =
    "getPluginManager getScenes exportTexture exportMaterial exportCamera exportNode printWarning ";

// What starting throws, "" when it succeeds, "no memory" without a state record.
std::string start() {
    try {
        return startSceneAccess() ? "" : "no memory";
    } catch (const SceneAccessProblem& problem) {
        CHECK_EQ(problem.warning, 0);
        return problem.message;
    }
}

std::string logged(const std::string& path) { return "load:" + path + "/plug-ins/kelmoformaya.mll " + SYMBOLS; }

// Nothing of the core's heap may be left when a case has ended.
struct NoBlocksLeft {
    std::uint64_t before = Offline::counter("live_blocks");
    ~NoBlocksLeft() { CHECK_EQ(Offline::counter("live_blocks"), before); }
};

}  // namespace

TEST_CASE(startAndEnd) {
    const NoBlocksLeft check;
    resetFakeSystem();
    CHECK_TEXT(start().c_str(), "");
    CHECK_TEXT(fakeSystem.log.c_str(), (logged("/root") + "begin ").c_str());
    CHECK(sceneAccessState != nullptr);
    CHECK(sceneAccessState->hostManager == sceneAccessState->getPluginManagerFn());
    CHECK(sceneAccessState->sceneList == sceneAccessState->getScenesFn());
    CHECK(sceneAccessState->mainScene == nullptr);
    CHECK(sceneAccessState->fallbackOwnedParams == nullptr);
    fakeSystem.log.clear();
    endSceneAccess();
    CHECK_TEXT(fakeSystem.log.c_str(), "end free ");
    CHECK(sceneAccessState == nullptr);
    fakeSystem.log.clear();
    endSceneAccess();
    CHECK_TEXT(fakeSystem.log.c_str(), "");
}

namespace {

SceneAccessState stateAtLoading;

}  // namespace

// All that is not read before it is written, although the memory was in use before.
TEST_CASE(theStateStandsEmptyBeforeTheLibraryIsLoaded) {
    const NoBlocksLeft check;
    resetFakeSystem();
    void* used = kelmo_malloc(sizeof(SceneAccessState));
    std::memset(used, 0xAB, sizeof(SceneAccessState));
    kelmo_free(used, sizeof(SceneAccessState));
    std::memset(&stateAtLoading, 0xAB, sizeof stateAtLoading);
    fakeSystem.atLoading = [] {
        if (sceneAccessState != nullptr) stateAtLoading = *sceneAccessState;
    };
    CHECK_TEXT(start().c_str(), "");
    CHECK(stateAtLoading.hostLibrary == nullptr);
    for (const ExportFunction function : {stateAtLoading.exportTextureFn, stateAtLoading.exportMaterialFn,
                                          stateAtLoading.exportCameraFn, stateAtLoading.exportNodeFn}) {
        CHECK(function == nullptr);
    }
    CHECK(stateAtLoading.printWarningFn == nullptr);
    CHECK(stateAtLoading.hostManager == nullptr);
    CHECK(stateAtLoading.mainScene == nullptr);
    CHECK(stateAtLoading.fallbackOwnedParams == nullptr);
    CHECK(stateAtLoading.sceneList == nullptr);
    endSceneAccess();
}

TEST_CASE(startingAgainFreesTheLibraryAndTellsNobody) {
    const NoBlocksLeft check;
    resetFakeSystem();
    start();
    fakeSystem.log.clear();
    fakeSystem.environment["KELMO_FOR_MAYA2020_MAIN"] = "/other";  // looked up anew
    CHECK_TEXT(start().c_str(), "");
    CHECK_TEXT(fakeSystem.log.c_str(), ("free " + logged("/other") + "begin ").c_str());

    // A failing attempt does not bring the old state back.
    fakeSystem.log.clear();
    fakeSystem.environment.clear();
    start();
    CHECK_TEXT(fakeSystem.log.c_str(), "free ");
    CHECK(sceneAccessState == nullptr);
    fakeSystem.log.clear();
    endSceneAccess();
    CHECK_TEXT(fakeSystem.log.c_str(), "");
}

// As nobody but this test makes it: there is no host to be told.
TEST_CASE(endingAStateWithoutAManager) {
    const NoBlocksLeft check;
    resetFakeSystem();
    start();
    sceneAccessState->hostManager = nullptr;
    fakeSystem.log.clear();
    endSceneAccess();
    CHECK_TEXT(fakeSystem.log.c_str(), "free ");
    CHECK(sceneAccessState == nullptr);
}

TEST_CASE(rootVariables) {
    struct Row {
        const char* label;
        const char* primary;
        const char* deprecated;
        const char* root;  // null: not found
    };
    const Row rows[] = {
        {"neither", "", "", nullptr},
        {"primary", "/a", "", "/a"},
        {"deprecated", "", "/b", "/b"},
        {"both", "/a", "/b", "/a"},
        {"literally missing", "<missing>", "/b", nullptr},
        {"deprecated literally missing", "", "<missing>", nullptr},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        const NoBlocksLeft check;
        resetFakeSystem();
        fakeSystem.environment["KELMO_FOR_MAYA2020_MAIN"] = row.primary;
        fakeSystem.environment["KELMO_FOR_MAYA2020_MAIN_x64"] = row.deprecated;
        const std::string message = start();
        if (row.root != nullptr) {
            CHECK_TEXT(message.c_str(), "");
            CHECK_EQ(fakeSystem.log.compare(0, logged(row.root).size(), logged(row.root)), 0);
        } else {
            CHECK_TEXT(message.c_str(),
                       "MayaSceneAccessUtils: Could not find environment variable \"KELMO_FOR_MAYA2020_MAIN\" (or its "
                       "fallback: \"KELMO_FOR_MAYA2020_MAIN_x64\")");
            CHECK_TEXT(fakeSystem.log.c_str(), "");
            CHECK(sceneAccessState == nullptr);
        }
        endSceneAccess();
    }
}

TEST_CASE(thePathIsCutTo1023Characters) {
    for (const int length : {990, 996, 997, 998, 1010, 1023, 1024, 3000}) {
        const NoBlocksLeft check;
        resetFakeSystem();
        const std::string root(length, 'r');
        fakeSystem.environment["KELMO_FOR_MAYA2020_MAIN"] = root;
        start();
        const std::string path = (root + "/plug-ins/kelmoformaya.mll").substr(0, 1023);
        CHECK_EQ(fakeSystem.log.compare(0, path.size() + 6, "load:" + path + " "), 0);
        endSceneAccess();
    }
}

TEST_CASE(aLibraryThatDoesNotLoad) {
    for (const bool record : {true, false}) {
        const NoBlocksLeft check;
        resetFakeSystem();
        fakeSystem.loads = false;
        fakeSystem.errorRecord = record;
        const std::string reason = record ? "[loadLib] LoadLibrary failed (126): gone" : "No error";
        CHECK_TEXT(
            start().c_str(),
            ("MayaSceneAccessUtils: Could not load library \"/root/plug-ins/kelmoformaya.mll\": " + reason).c_str());
        CHECK_TEXT(fakeSystem.log.c_str(), "load:/root/plug-ins/kelmoformaya.mll ");
        CHECK(sceneAccessState == nullptr);
    }
}

TEST_CASE(aMissingExport) {
    const char* required[] = {"getPluginManager", "getScenes",    "exportTexture",
                              "exportMaterial",   "exportCamera", "exportNode"};
    std::string asked = "load:/root/plug-ins/kelmoformaya.mll ";
    for (const char* name : required) {
        CHECK_ROW(name);
        const NoBlocksLeft check;
        resetFakeSystem();
        fakeSystem.symbols.erase(name);
        CHECK_TEXT(start().c_str(),
                   (std::string("MayaSceneAccessUtils: Could not find symbol \"") + name + "\".").c_str());
        asked += std::string(name) + " ";
        CHECK_TEXT(fakeSystem.log.c_str(), (asked + "free ").c_str());
        CHECK(sceneAccessState == nullptr);
    }
    const NoBlocksLeft check;
    resetFakeSystem();
    fakeSystem.symbols.erase("printWarning");
    CHECK_TEXT(start().c_str(), "");
    CHECK(sceneAccessState->printWarningFn == nullptr);
    endSceneAccess();
}

TEST_CASE(aMissingHostObject) {
    for (const char* name : {"getPluginManager", "getScenes"}) {
        CHECK_ROW(name);
        const NoBlocksLeft check;
        resetFakeSystem();
        fakeSystem.symbols[name] = reinterpret_cast<void*>(+[]() -> void* { return nullptr; });
        CHECK_TEXT(start().c_str(), "MayaSceneAccessUtils: Could not obtain plugin manager.");
        CHECK_TEXT(fakeSystem.log.c_str(), (logged("/root") + "free ").c_str());
        CHECK(sceneAccessState == nullptr);
    }
}

TEST_CASE(bothHostObjectsAreAskedForInTurn) {
    const NoBlocksLeft check;
    resetFakeSystem();
    fakeSystem.symbols["getPluginManager"] = reinterpret_cast<void*>(+[]() -> void* {
        fakeSystem.log += "manager ";
        return nullptr;
    });
    fakeSystem.symbols["getScenes"] = reinterpret_cast<void*>(+[]() -> void* {
        fakeSystem.log += "scenes ";
        return nullptr;
    });
    CHECK_TEXT(start().c_str(), "MayaSceneAccessUtils: Could not obtain plugin manager.");
    CHECK_TEXT(fakeSystem.log.c_str(), (logged("/root") + "manager scenes free ").c_str());
}

TEST_CASE(startWithoutMemory) {
    // The record first, then the texts of the variable's default and value, two allocations each.
    const char* missing =
        "MayaSceneAccessUtils: Could not find environment variable \"KELMO_FOR_MAYA2020_MAIN\" (or its fallback: "
        "\"KELMO_FOR_MAYA2020_MAIN_x64\")";
    const char* expected[] = {"no memory", "", "", missing, missing};
    for (int nth = 1; nth <= 5; ++nth) {
        const NoBlocksLeft check;
        resetFakeSystem();
        Offline::failAllocation(nth, false);
        CHECK_TEXT(start().c_str(), expected[nth - 1]);
        Offline::failAllocation(0, false);
        CHECK_EQ(sceneAccessState != nullptr, expected[nth - 1][0] == 0);
        endSceneAccess();
    }
}

namespace {

std::string warned;

}  // namespace

TEST_CASE(fallbackVariableIsResolvedOnce) {
    const NoBlocksLeft check;
    resetFakeSystem();
    fakeSystem.environment["P"] = "one";
    FallbackEnvVar variable("P", "D", "default");
    for (int round = 0; round < 2; ++round) {
        const TextRef value(variable.resolve(nullptr));
        CHECK_TEXT(charactersOf(value.get()), "one");
        fakeSystem.environment["P"] = "two";
    }
    FallbackEnvVar unset("X", "Y", "default");
    const TextRef value(unset.resolve(nullptr));
    CHECK_TEXT(charactersOf(value.get()), "default");
}

TEST_CASE(deprecatedNamesAreReportedToALogger) {
    struct Row {
        const char* primary;
        const char* deprecated;
        const char* message;
    };
    const Row rows[] = {
        {"", "", ""},
        {"a", "", ""},
        {"a", "b", "Deprecated environment variable defined \"D\". Its value will not be used in favor of \"P\"."},
        {"", "b", "Deprecated environment variable \"D\" used as fallback. Please prefer using \"P\"."},
    };
    for (const Row& row : rows) {
        const NoBlocksLeft check;
        resetFakeSystem();
        fakeSystem.environment["P"] = row.primary;
        fakeSystem.environment["D"] = row.deprecated;
        warned.clear();
        FallbackEnvVar variable("P", "D", "default");
        for (int round = 0; round < 2; ++round) releaseText(variable.resolve([](const char* text) { warned += text; }));
        CHECK_TEXT(warned.c_str(), row.message);
    }
}
