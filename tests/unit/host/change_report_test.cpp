#include "host/report/change_report.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "core/scene_file/scene_file_api.h"
#include "host/scene/extra_scenes.h"
#include "stub_values.h"
#include "support/check.h"

namespace {

constexpr char SCENE[] =
    "{\"kelmo-scene\":1}\n"
    "{\"type\":\"TestThing\",\"name\":\"a\",\"params\":{\"count\":1,\"ids\":[1,2,3]}}\n"
    "{\"type\":\"TestThing\",\"name\":\"b\",\"params\":{\"label\":\"x\"}}\n"
    "{\"type\":\"TestThing\",\"name\":\"c\",\"params\":{\"link\":\"b\"}}\n";

// A main scene of three plugins, remembered.
struct RememberedScene {
    RememberedScene() {
        KUtils::releaseError(Offline::addTypes(manager, HOST_TEST_TYPES));
        KUtils::ErrorRecord* error = Offline::readSceneText(contents(), SCENE, std::strlen(SCENE), "test");
        CHECK_TEXT(error != nullptr ? error->message : "", "");
        KUtils::releaseError(error);
        report.remember(contents(), extra);
    }
    ~RememberedScene() {
        Offline::freeExtraScenes(extra);
        Offline::freeManager(manager);
    }

    Offline::SceneContents& contents() { return Offline::mainContents(manager); }
    KUtils::Plugin* find(const char* name) { return Offline::findPlugin(contents(), name); }

    std::string changes() {
        std::string lines;
        report.report(contents(), extra, keepLine, &lines);
        return lines;
    }

    static void keepLine(void* user, const char* text, std::size_t length) {
        static_cast<std::string*>(user)->append(text, length).append("\n");
    }

    KUtils::PluginManager* manager = Offline::makeManager();
    KUtils::SceneList extra = Offline::emptyExtraScenes();
    Offline::ChangeReport report;
};

}  // namespace

TEST_CASE(nothingChangedIsNothingReported) {
    RememberedScene scene;
    CHECK(scene.report.hasRemembered());
    CHECK_TEXT(scene.changes().c_str(), "");
}

TEST_CASE(everyKindOfChangeIsReported) {
    RememberedScene scene;
    std::vector<std::int32_t> many(1000);
    for (int i = 0; i < 1000; ++i) many[static_cast<std::size_t>(i)] = i;
    stub::Int count("count", 2);
    stub::IntList ids("ids", many);
    stub::Int newCount("count", 7);
    stub::String label("label", "say \"hi\"");
    CHECK(scene.find("a")->setParameter(&label) != 0);
    CHECK(scene.find("a")->setParameter(&ids) != 0);
    CHECK(scene.find("a")->setParameter(&count) != 0);
    CHECK(Offline::deletePlugin(scene.contents(), scene.find("b")));
    CHECK(Offline::createPlugin(scene.contents(), "TestThing", "d") != nullptr);
    CHECK(scene.find("d")->setParameter(&newCount) != 0);
    CHECK_TEXT(
        scene.changes().c_str(),
        R"({"change":"set","plugin":"a","type":"TestThing","param":"count","old":"1","new":"2"})"
        "\n"
        R"({"change":"set","plugin":"a","type":"TestThing","param":"ids","old":"[1,2,3]","new":"[0,1,2,3,4,5,6,7,... 1000 in all]"})"
        "\n"
        R"({"change":"set","plugin":"a","type":"TestThing","param":"label","old":null,"new":"\"say \\\"hi\\\"\""})"
        "\n"
        R"({"change":"deleted","plugin":"b","type":"TestThing"})"
        "\n"
        R"({"change":"set","plugin":"c","type":"TestThing","param":"link","old":"\"b\"","new":"null"})"
        "\n"
        R"({"change":"created","plugin":"d","type":"TestThing"})"
        "\n"
        R"({"change":"set","plugin":"d","type":"TestThing","param":"count","old":null,"new":"7"})"
        "\n");
}

TEST_CASE(aPluginMadeAnewUnderItsNameIsDeletedAndCreated) {
    RememberedScene scene;
    CHECK(Offline::deletePlugin(scene.contents(), scene.find("c")));
    CHECK(Offline::createPlugin(scene.contents(), "TestThing", "c") != nullptr);
    CHECK_TEXT(scene.changes().c_str(),
               "{\"change\":\"deleted\",\"plugin\":\"c\",\"type\":\"TestThing\"}\n"
               "{\"change\":\"created\",\"plugin\":\"c\",\"type\":\"TestThing\"}\n");
}

TEST_CASE(aLongListThatDiffersAtItsEndIsReported) {
    RememberedScene scene;
    stub::IntList before("ids", std::vector<std::int32_t>(100000, 1));
    CHECK(scene.find("a")->setParameter(&before) != 0);
    scene.report.remember(scene.contents(), scene.extra);
    CHECK_TEXT(scene.changes().c_str(), "");
    before.values.back() = 2;
    CHECK(std::strstr(scene.changes().c_str(), "\"param\":\"ids\"") != nullptr);
}

TEST_CASE(aLongTextIsCutBetweenCharacters) {
    RememberedScene scene;
    // A quote and 119 characters of two bytes are 239 bytes: the next character does not fit whole.
    std::string text;
    for (int i = 0; i < 1000; ++i) text += "\xc3\xa9";
    stub::String label("label", text.c_str());
    CHECK(scene.find("a")->setParameter(&label) != 0);
    const std::string expected = "\"new\":\"\\\"" + text.substr(0, 238) + "... 2002 bytes in all\"}\n";
    const std::string changes = scene.changes();
    CHECK(changes.size() > expected.size());
    CHECK_TEXT(changes.substr(changes.size() - std::min(changes.size(), expected.size())).c_str(), expected.c_str());
}

TEST_CASE(forgettingForgetsAll) {
    RememberedScene scene;
    scene.report.forget();
    CHECK(!scene.report.hasRemembered());
}
