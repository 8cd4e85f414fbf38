#include "kelmo/scene/scene.h"

#include <new>
#include <string>

#include "catalogue/test_catalogue.h"
#include "core/base/counters.h"
#include "core/core_api.h"
#include "core/scene/plugin_manager.h"
#include "plugin/test_value.h"
#include "support/check.h"

using namespace Offline;
using KUtils::KelmoScene;

namespace {

class NameCollector final : public KUtils::EnumPluginCallback {
  public:
    int process(KUtils::Plugin* plugin) override {
        names += plugin->name;
        return 1;
    }
    std::string names;
};

// A scene in a block of the core's heap, as the module makes it.
KelmoScene* makeScene(KUtils::PluginManager* manager) {
    return new (kelmo_malloc(sizeof(KelmoScene))) KelmoScene(manager, nullptr, 0);
}

}  // namespace

TEST_CASE(extraScenesHaveContentsOfTheirOwn) {
    const Counters before = counters;
    {
        OfflinePluginManager manager;
        addTestTypes(manager.catalogue);
        CHECK_EQ(sizeof(KelmoScene), std::size_t{32});
        KelmoScene* scene = makeScene(&manager);
        CHECK(scene->getManager() == &manager);
        CHECK(contentsOf(scene).parent() == &manager.contents);
        CHECK(manager.contents.parent() == nullptr);
        CHECK(&contentsOf(scene).catalogue() == &manager.catalogue);

        KUtils::Plugin* plugin = scene->newPlugin("Shade", "clay", 0);
        CHECK(plugin != nullptr);
        CHECK_TEXT(plugin->name, "clay");
        CHECK(scene->findPlugin("clay") == plugin);
        CHECK(manager.contents.find("clay") == nullptr);
        CHECK(scene->newPlugin("Shade", "clay", 0) == nullptr);
        CHECK(scene->newPlugin("Shde", "x", 0) == nullptr);
        CHECK(scene->newPlugin(nullptr, "x", 0) == nullptr);
        CHECK(scene->newPlugin("Shade", "", 0) == nullptr);
        CHECK(scene->newPlugin("Shade", nullptr, 0) == nullptr);
        CHECK(scene->findPlugin("x") == nullptr);
        CHECK(scene->findPlugin(nullptr) == nullptr);

        CHECK(manager.contents.create(*manager.catalogue.find("Plain"), "main") != nullptr);
        NameCollector collector;
        manager.enumPlugins(&collector);
        CHECK_TEXT(collector.names.c_str(), "main");
        manager.enumPlugins(nullptr);

        scene->deletePlugin(plugin, true);
        CHECK(scene->findPlugin("clay") == nullptr);
        CHECK(!isAlive(plugin));
        scene->deletePlugin(nullptr, true);
        scene->deletePlugin(manager.contents.find("main"), true);
        CHECK(manager.contents.find("main") != nullptr);
        freeScene(scene);
        freeScene(nullptr);
    }
    CHECK_EQ(counters.scenesMade - before.scenesMade, std::uint64_t{1});
    CHECK_EQ(counters.scenesFreed - before.scenesFreed, std::uint64_t{1});
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    CHECK_EQ(counters.wrongSizes, before.wrongSizes);
}

TEST_CASE(theManagerKnowsTheTypes) {
    OfflinePluginManager manager;
    addTestTypes(manager.catalogue);
    CHECK_TEXT(manager.getPluginDescriptor("Only")->getTypeName(), "Only");
    CHECK(manager.getPluginDescriptor("only") == nullptr);
    CHECK(manager.getPluginDescriptor(nullptr) == nullptr);
    CHECK_EQ(manager.getPluginDescriptor("Shade")->params->count, 6);
}

TEST_CASE(aSceneWithoutAManagerHasNothing) {
    KelmoScene scene(nullptr, nullptr, 0);
    CHECK(scene.getManager() == nullptr);
    CHECK(scene.findPlugin("x") == nullptr);
    CHECK(scene.newPlugin("Plain", "x", 0) == nullptr);
    CHECK_TEXT(textOf(scene.readFile("a.kscene", 0, 1, nullptr)).c_str(), "the scene has no plugin manager");
}

TEST_CASE(aFileNeedsAName) {
    OfflinePluginManager manager;
    KelmoScene scene(&manager, nullptr, 0);
    CHECK_TEXT(textOf(scene.readFile(nullptr, 0, 1, nullptr)).c_str(), "no file name");
    CHECK_TEXT(textOf(scene.readFile(nullptr, 0, 1, "text")).c_str(), "no file name");
}

TEST_CASE(aFileThatIsNotThereIsAnError) {
    const Counters before = counters;
    OfflinePluginManager manager;
    {
        KelmoScene scene(&manager, nullptr, 0);
        const std::string missing = std::string(CORE_TEST_TYPES) + "/nowhere.kscene";
        const std::string error = textOf(scene.readFile(missing.c_str(), 0, 1, nullptr));
        CHECK(error.find("nowhere.kscene") != std::string::npos);
        CHECK_EQ(contentsOf(&scene).count(), std::size_t{0});
    }
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
}

TEST_CASE(attachedParametersAreOnlyRemembered) {
    const Counters before = counters;
    const int destroyedBefore = TestValue::destroyed;
    OfflinePluginManager manager;
    auto* scene = makeScene(&manager);
    auto* value = new TestValue("v", KUtils::PARAM_INT);
    scene->attachParameter(value);
    scene->attachParameter(nullptr);
    CHECK_EQ(counters.attachedParameters - before.attachedParameters, std::uint64_t{1});
    delete value;  // its owner frees it before the scene ends
    freeScene(scene);
    CHECK_EQ(TestValue::destroyed, destroyedBefore + 1);
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
}
