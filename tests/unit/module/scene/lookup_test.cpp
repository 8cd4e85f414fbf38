// Finding plugins and scenes: which scene answers, what its position is, and what is there without a host manager.
#include "scene/lookup.h"

#include <cstring>
#include <string>

#include "check.h"
#include "frame/problem.h"
#include "host/state.h"
#include "kelmo/scene/host_plugin_manager.h"

using namespace KUtils;
using namespace KUtils::Python;

namespace {

class AnyPlugin final : public Plugin {
  public:
    PluginDescriptor* getPluginDescriptor() override { return nullptr; }
    int setParameter(KelmoPluginParameter*) override { return 0; }
    KelmoPluginParameter* getParameter(const char*) override { return nullptr; }
};

AnyPlugin inMain, inFirst, inSecond;

// A scene that knows plugins by one letter each.
class LetterScene final : public KelmoScene {
  public:
    LetterScene(const char* knownLetters, Plugin& knownPlugin)
        : KelmoScene(nullptr, nullptr, 0), letters(knownLetters), plugin(knownPlugin) {}

    PluginManager* getManager() override { return reinterpret_cast<PluginManager*>(this); }
    Plugin* findPlugin(const char* name) override {
        return std::strchr(letters, name[0]) != nullptr ? &plugin : nullptr;
    }

  private:
    const char* letters;
    Plugin& plugin;
};

class LetterManager final : public HostPluginManager {
  public:
    Plugin* findPlugin(const char* name) override { return name[0] == 'm' || name[0] == 'x' ? &inMain : nullptr; }
    Plugin* createPlugin(const char*, const char*, bool&, bool, bool, bool) override { return nullptr; }
    void deletePlugin(Plugin*, bool) override {}
    int beginScriptAccess() override { return 0; }
    int endScriptAccess() override { return 0; }
};

// "m" and "x" stand in the main scene; the list holds [0] "f" and "x", [1] a scene that could not be allocated,
// [2] "s", "f" and "x".
struct Scenes {
    Scenes() {
        list.head = &nodes[0];
        list.count = 3;
        state.hostManager = &manager;
        state.sceneList = &list;
        sceneAccessState = &state;
    }
    ~Scenes() { sceneAccessState = nullptr; }

    LetterScene first{"fx", inFirst};
    LetterScene second{"sfx", inSecond};
    SceneNode nodes[3] = {{&first, &nodes[1]}, {nullptr, &nodes[2]}, {&second, nullptr}};
    SceneList list{};
    LetterManager manager;
    SceneAccessState state{};
};

// What a look-up throws, "" when it finds the plugin.
std::string look(const char* name, const Plugin* expected, int expectedIndex) {
    int index = 77;
    try {
        CHECK(lookupPlugin(name, index) == expected);
        CHECK_EQ(index, expectedIndex);
        CHECK(lookupPlugin(name) == expected);
    } catch (const SceneAccessProblem& problem) {
        CHECK_EQ(problem.warning, 0);
        return problem.message;
    }
    return "";
}

}  // namespace

TEST_CASE(theMainSceneThenTheListFromItsHead) {
    Scenes scenes;
    struct Row {
        const char* name;
        const Plugin* plugin;
        int index;
    };
    const Row rows[] = {{"m", &inMain, -1}, {"x", &inMain, -1}, {"f", &inFirst, 0}, {"s", &inSecond, 2}};
    for (const Row& row : rows) {
        CHECK_ROW(row.name);
        CHECK_TEXT(look(row.name, row.plugin, row.index).c_str(), "");
    }
    CHECK_ROW(nullptr);
    CHECK_TEXT(look("nobody", nullptr, 0).c_str(), "The plugin \"nobody\" doesn't exist.");
}

TEST_CASE(aWalkMovesTheListsCursor) {
    Scenes scenes;
    scenes.list.cursor = &scenes.nodes[2];
    lookupPlugin("m");
    CHECK(scenes.list.cursor == &scenes.nodes[2]);  // the main scene needs no walk
    lookupPlugin("f");
    CHECK(scenes.list.cursor == &scenes.nodes[1]);
    lookupPlugin("s");
    CHECK(scenes.list.cursor == nullptr);
}

TEST_CASE(scenesByTheirPosition) {
    Scenes scenes;
    CHECK(sceneAt(0) == &scenes.first);
    CHECK(sceneAt(1) == nullptr);
    CHECK(sceneAt(2) == &scenes.second);
    CHECK(sceneAt(3) == nullptr);
    CHECK(sceneAt(-1) == nullptr);
    scenes.list.count = 4;  // the nodes end before the count does
    CHECK(sceneAt(3) == nullptr);
    scenes.list.count = 2;  // the count before the nodes
    CHECK(sceneAt(2) == nullptr);
    scenes.state.sceneList = nullptr;
    CHECK(sceneAt(0) == nullptr);
}

TEST_CASE(withoutAHostManagerTheMainSceneAnswers) {
    Scenes scenes;
    LetterScene main("sm", inMain);
    CHECK(currentPluginManager() == nullptr);  // this host has a manager that has none
    scenes.state.hostManager = nullptr;
    CHECK(currentPluginManager() == nullptr);
    CHECK_TEXT(look("s", &inSecond, 2).c_str(), "");
    scenes.state.mainScene = &main;
    CHECK(currentPluginManager() == main.getManager());
    CHECK_TEXT(look("s", &inMain, -1).c_str(), "");
    CHECK_TEXT(look("f", &inFirst, 0).c_str(), "");
}

TEST_CASE(nothingAtAll) {
    Scenes scenes;
    scenes.state.sceneList = nullptr;
    CHECK_TEXT(look("s", nullptr, 0).c_str(), "The plugin \"s\" doesn't exist.");
    sceneAccessState = nullptr;
    CHECK_EQ(look("m", nullptr, 0).find("The kelmo.pluginmodifier module wasn't initialized properly."), 0u);
}
