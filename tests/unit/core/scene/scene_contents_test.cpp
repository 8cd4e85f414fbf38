#include "core/scene/scene_contents.h"

#include <string>

#include "catalogue/test_catalogue.h"
#include "core/base/counters.h"
#include "core/core_api.h"
#include "plugin/test_value.h"
#include "support/check.h"

using namespace Offline;

namespace {

class TestScene {
  public:
    TestScene() : contents(catalogue) { addTestTypes(catalogue); }
    OfflinePlugin* make(const char* name, const char* type = "Plain") {
        return contents.create(*catalogue.find(type), name);
    }
    std::string names() const {
        std::string result;
        for (OfflinePlugin* p = contents.first(); p != nullptr; p = SceneContents::next(p)) result += p->name;
        return result;
    }

    Catalogue catalogue;
    SceneContents contents;
};

// Collects names and does to the scene what it is told at each plugin.
class Walk final : public KUtils::EnumPluginCallback {
  public:
    explicit Walk(TestScene& scene) : scene(scene) {}
    int process(KUtils::Plugin* plugin) override {
        names += plugin->name;
        if (removes != nullptr) {
            scene.contents.remove(scene.contents.find(removes));
            removes = nullptr;
        }
        if (removesItself) scene.contents.remove(OfflinePlugin::from(plugin));
        if (creates) scene.make(("new_" + std::to_string(names.size())).c_str());
        return names.size() == stopAt ? 0 : 1;
    }
    TestScene& scene;
    std::string names;
    const char* removes = nullptr;
    bool removesItself = false;
    bool creates = false;
    std::size_t stopAt = 0;
};

}  // namespace

TEST_CASE(pluginsStandInTheOrderOfCreation) {
    TestScene scene;
    CHECK(scene.contents.first() == nullptr);
    OfflinePlugin* b = scene.make("b");
    OfflinePlugin* a = scene.make("a");
    OfflinePlugin* c = scene.make("c");
    CHECK_TEXT(scene.names().c_str(), "bac");
    CHECK(scene.contents.find("a") == a);
    CHECK(scene.contents.find("b") == b);
    CHECK(scene.contents.last() == c);
    CHECK(scene.contents.find("A") == nullptr);
    CHECK(scene.contents.find("") == nullptr);
    CHECK(scene.contents.find(nullptr) == nullptr);
    CHECK_EQ(scene.contents.count(), std::size_t{3});
}

TEST_CASE(namesAreUniqueAndNotEmpty) {
    TestScene scene;
    OfflinePlugin* first = scene.make("a");
    CHECK(scene.make("a", "Shade") == nullptr);
    CHECK(scene.make("") == nullptr);
    CHECK(scene.make(nullptr) == nullptr);
    CHECK(scene.contents.find("a") == first);
    CHECK_EQ(scene.contents.count(), std::size_t{1});
    failAllocation(1, false);
    CHECK(scene.make("b") == nullptr);
    failAllocation(0, false);
    CHECK(scene.contents.find("b") == nullptr);
    CHECK(scene.make("only", "Only") != nullptr);
    CHECK(scene.make("only2", "Only") != nullptr);
}

TEST_CASE(removedPluginsStayInMemoryOnly) {
    TestScene scene;
    OfflinePlugin* a = scene.make("a");
    OfflinePlugin* b = scene.make("b");
    CHECK(a->isAlive());
    CHECK(scene.contents.remove(a));
    CHECK(!a->isAlive());
    CHECK_TEXT(a->name, "a");
    CHECK(scene.contents.find("a") == nullptr);
    CHECK_TEXT(scene.names().c_str(), "b");
    CHECK_EQ(scene.contents.count(), std::size_t{1});
    CHECK(!scene.contents.remove(a));
    CHECK(!scene.contents.remove(nullptr));
    OfflinePlugin* secondA = scene.make("a");
    CHECK(secondA != nullptr && secondA != a);
    CHECK_TEXT(scene.names().c_str(), "ba");
    CHECK(!scene.contents.remove(a));
    CHECK(scene.contents.find("a") == secondA);
    TestScene other;
    OfflinePlugin* foreign = other.make("b");
    CHECK(!scene.contents.remove(foreign));
    CHECK(foreign->isAlive());
    CHECK(b->isAlive());
    CHECK(scene.contents.remove(b));
    CHECK(scene.contents.remove(secondA));
    CHECK(scene.contents.first() == nullptr);
    CHECK(scene.contents.last() == secondA);
}

TEST_CASE(walksSurviveChanges) {
    struct Row {
        const char* label;
        const char* removes;
        bool removesItself, creates;
        std::size_t stopAt;
        const char* walked;
        std::size_t left;
    };
    const Row rows[] = {
        {"nothing", nullptr, false, false, 0, "abcd", 4},
        {"stop", nullptr, false, false, 2, "ab", 4},
        {"remove the next", "b", false, false, 0, "acd", 3},
        {"remove the last", "d", false, false, 0, "abc", 3},
        {"remove the first", "a", false, false, 0, "abcd", 3},
        {"remove each", nullptr, true, false, 0, "abcd", 0},
        {"create at each", nullptr, false, true, 0, "abcd", 8},
        {"remove and create", nullptr, true, true, 0, "abcd", 4},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        TestScene scene;
        for (const char* name : {"a", "b", "c", "d"}) scene.make(name);
        Walk walk(scene);
        walk.removes = row.removes;
        walk.removesItself = row.removesItself;
        walk.creates = row.creates;
        walk.stopAt = row.stopAt;
        scene.contents.enumerate(walk);
        CHECK_TEXT(walk.names.c_str(), row.walked);
        CHECK_EQ(scene.contents.count(), row.left);
    }
}

TEST_CASE(manyRemovedPluginsInARow) {
    TestScene scene;
    scene.make("first");
    for (int i = 0; i < 200000; ++i) scene.contents.remove(scene.make(("p" + std::to_string(i)).c_str()));
    scene.make("last");
    CHECK_TEXT(scene.names().c_str(), "firstlast");
    scene.contents.remove(scene.contents.find("first"));
    CHECK_TEXT(scene.names().c_str(), "last");
}

TEST_CASE(nodesLeadToPlugins) {
    TestScene scene;
    OfflinePlugin* mesh = scene.make("teapot@mesh");
    OfflinePlugin* node = scene.make("teapot@node");
    OfflinePlugin* plain = scene.make("plain");
    CHECK(mesh->nodeName() == nullptr);
    CHECK(scene.contents.setNode(*mesh, "teapot"));
    CHECK(scene.contents.setNode(*node, "teapot"));
    CHECK(!scene.contents.setNode(*node, "kettle"));
    CHECK_TEXT(node->nodeName(), "teapot");
    CHECK(scene.contents.findByNode("teapot") == mesh);
    CHECK(scene.contents.findByNode("plain") == plain);
    CHECK(scene.contents.findByNode("teapot@node") == node);
    CHECK(scene.contents.findByNode("kettle") == nullptr);
    CHECK(scene.contents.findByNode(nullptr) == nullptr);
    scene.contents.remove(mesh);
    CHECK(scene.contents.findByNode("teapot") == node);
    scene.contents.remove(node);
    CHECK(scene.contents.findByNode("teapot") == nullptr);
    failAllocation(1, false);
    CHECK(!scene.contents.setNode(*plain, "x"));
    failAllocation(0, false);
    CHECK(plain->nodeName() == nullptr);
}

TEST_CASE(contentsFreeWhatTheyOwn) {
    const Counters before = counters;
    const int destroyedBefore = TestValue::destroyed;
    {
        TestScene scene;
        OfflinePlugin* a = scene.make("a", "Shade");
        auto* first = new TestValue("amount", KUtils::PARAM_INT);
        auto* second = new TestValue("amount", KUtils::PARAM_INT);
        scene.contents.own(first);
        scene.contents.own(second);
        scene.contents.own(nullptr);
        CHECK_EQ(scene.contents.ownedValues(), std::size_t{2});
        CHECK(a->carry(first));
        CHECK(a->carry(second));
        CHECK_EQ(TestValue::destroyed, destroyedBefore);
        scene.contents.setNode(*a, "node");
        scene.contents.remove(a);
        scene.make("b");
        scene.contents.header().up = "y";
        DeferredRecord record;
        record.name = "later";
        scene.contents.deferred().add(std::move(record));

        scene.contents.clear();
        CHECK_EQ(TestValue::destroyed, destroyedBefore + 2);
        CHECK_EQ(counters.liveBlocks, before.liveBlocks);
        CHECK(scene.contents.first() == nullptr);
        CHECK(scene.contents.last() == nullptr);
        CHECK(scene.contents.find("b") == nullptr);
        CHECK(scene.contents.findByNode("node") == nullptr);
        CHECK(scene.contents.header().up.empty());
        CHECK_EQ(scene.contents.deferred().size(), std::size_t{0});
        CHECK_EQ(scene.contents.ownedValues(), std::size_t{0});
        scene.make("c");
        scene.contents.own(new TestValue("amount", KUtils::PARAM_INT));
    }
    CHECK_EQ(TestValue::destroyed, destroyedBefore + 3);
    CHECK_EQ(counters.liveBlocks, before.liveBlocks);
    CHECK_EQ(counters.liveBytes, before.liveBytes);
    CHECK_EQ(counters.wrongSizes, before.wrongSizes);
    CHECK_EQ(counters.pluginsMade - before.pluginsMade, counters.pluginsFreed - before.pluginsFreed);
}

TEST_CASE(aHundredThousandPluginsAreSmall) {
    const Counters before = counters;
    TestScene scene;
    constexpr int COUNT = 100000;
    bool found = true;
    for (int i = 0; i < COUNT; ++i) scene.make(("plugin_" + std::to_string(i)).c_str());
    for (int i = 0; i < COUNT; ++i) found = found && scene.contents.find(("plugin_" + std::to_string(i)).c_str());
    CHECK(found);
    // Beside these bytes: 16 of header a block, at most 24 of the name table a plugin.
    CHECK((counters.liveBytes - before.liveBytes) / COUNT < 200);
    CHECK_EQ(counters.liveBlocks - before.liveBlocks, std::uint64_t{COUNT});
}
