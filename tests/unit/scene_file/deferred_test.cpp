// Records that wait: kept as they were written, made with what they refer to when somebody asks.
#include <cstring>

#include "check.h"
#include "core/core_api.h"
#include "test_scene.h"

namespace {

const char A[] = "{\"type\":\"Node\",\"name\":\"a\"}\n";
const char B[] = "{\"type\":\"Node\",\"name\":\"b\"}\n";
const char ONE[] =
    "{ \"type\":\"Material\",\"name\":\"one\",\"node\":\"|one\",\"deferred\":true,\"params\":{\"next\":\"two\"}}\n";
const char TWO[] = "{\"type\":\"Material\",\"name\":\"two\",\"deferred\":true,\"params\":{\"next\":\"one\"}}\n";
const char THREE[] = "{\"type\":\"Material\",\"name\":\"three\",\"deferred\":true,\"params\":{\"next\":\"a\"}}\n";

std::string scene() { return std::string(A) + ONE + TWO + B + THREE; }

}  // namespace

TEST_CASE(waitingRecordsAreNoPlugins) {
    TestScene test;
    CHECK_TEXT(test.readLines(scene()).c_str(), "");
    CHECK_EQ(test.contents.count(), 2u);
    CHECK(test.find("one") == nullptr);
    CHECK_TEXT(test.lines().c_str(), scene().c_str());
}

TEST_CASE(aRecordIsMadeWithWhatItRefersTo) {
    TestScene test;
    CHECK_TEXT(test.readLines(scene()).c_str(), "");
    KUtils::Plugin* one = Offline::materialise(test.contents, "|one", "material");
    CHECK(one != nullptr && one == test.find("one"));
    CHECK_TEXT(test.lines().c_str(),
               (std::string(A) + B + THREE +
                "{\"type\":\"Material\",\"name\":\"one\",\"node\":\"|one\",\"params\":{\"next\":\"two\"}}\n"
                "{\"type\":\"Material\",\"name\":\"two\",\"params\":{\"next\":\"one\"}}\n")
                   .c_str());
    CHECK(Offline::materialise(test.contents, "|one", nullptr) == one);
    CHECK(Offline::materialise(test.contents, "two", "material") == test.find("two"));
}

TEST_CASE(otherKindsAndUnknownNodesAreRefused) {
    struct Row {
        const char* node;
        const char* kind;
        bool made;
    };
    const Row rows[] = {{"|one", "texture", false}, {"nobody", nullptr, false}, {nullptr, nullptr, false},
                        {"", nullptr, false},       {"a", "material", false},   {"a", "node", true},
                        {"a", nullptr, true},       {"one", "material", true},  {"three", nullptr, true}};
    for (const Row& row : rows) {
        CHECK_ROW(row.node);
        TestScene test;
        CHECK_TEXT(test.readLines(scene()).c_str(), "");
        CHECK_EQ(Offline::materialise(test.contents, row.node, row.kind) != nullptr, row.made);
        if (!row.made) CHECK_TEXT(test.lines().c_str(), scene().c_str());
    }
}

// Of one node there can be a plugin of each kind, standing and waiting.
TEST_CASE(theKindDecidesAmongThoseOfANode) {
    struct Row {
        const char* label;
        const char* lines;
        const char* node;
        const char* kind;
        const char* name;  // of the plugin; null: none
    };
    const char both[] =
        "{\"type\":\"Material\",\"name\":\"m\",\"node\":\"brick\",\"deferred\":true}\n"
        "{\"type\":\"Node\",\"name\":\"n\",\"node\":\"brick\",\"deferred\":true}\n";
    const char standing[] =
        "{\"type\":\"Node\",\"name\":\"brick\"}\n"
        "{\"type\":\"Material\",\"name\":\"m\",\"node\":\"brick\",\"deferred\":true}\n";
    const char later[] =
        "{\"type\":\"Node\",\"name\":\"n\",\"node\":\"brick\"}\n"
        "{\"type\":\"Material\",\"name\":\"m\",\"node\":\"brick\"}\n"
        "{\"type\":\"Material\",\"name\":\"brick\",\"deferred\":true}\n";
    const Row rows[] = {
        {"both wait", both, "brick", "material", "m"},       {"both wait", both, "brick", "node", "n"},
        {"both wait", both, "brick", "texture", nullptr},    {"both wait", both, "brick", nullptr, "m"},
        {"one stands", standing, "brick", "material", "m"},  {"one stands", standing, "brick", "node", "brick"},
        {"one stands", standing, "brick", nullptr, "brick"}, {"the second stands", later, "brick", "material", "m"},
        {"the second stands", later, "brick", "node", "n"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        TestScene test;
        CHECK_TEXT(test.readLines(row.lines).c_str(), "");
        KUtils::ErrorRecord* problem = nullptr;
        const KUtils::Plugin* plugin = Offline::materialise(test.contents, row.node, row.kind, &problem);
        CHECK(plugin == (row.name != nullptr ? test.find(row.name) : nullptr));
        CHECK_EQ(plugin != nullptr, row.name != nullptr);
        CHECK_TEXT(takeError(problem).c_str(), "");
    }
    // A plugin of the record's name stands for it, also for a kind that it is not.
    TestScene test;
    CHECK_TEXT(test.readLines(THREE).c_str(), "");
    CHECK(test.contents.create(*test.contents.catalogue().find("Node"), "three") != nullptr);
    KUtils::ErrorRecord* problem = nullptr;
    CHECK(Offline::materialise(test.contents, "three", "material", &problem) == nullptr);
    CHECK(problem == nullptr);
    CHECK(Offline::materialise(test.contents, "three", "node", nullptr) == test.find("three"));
}

TEST_CASE(recordsKeepTheirPlaceWhenPluginsAroundThemGo) {
    TestScene test;
    CHECK_TEXT(test.readLines(scene()).c_str(), "");
    CHECK(test.contents.remove(test.find("b")));
    CHECK(test.contents.remove(test.find("a")));
    CHECK(test.contents.create(*test.contents.catalogue().find("Node"), "c") != nullptr);
    CHECK_TEXT(test.lines().c_str(), (std::string(ONE) + TWO + THREE + "{\"type\":\"Node\",\"name\":\"c\"}\n").c_str());
}

TEST_CASE(namesOfRecordsAreTaken) {
    TestScene test;
    CHECK_TEXT(test.readLines(std::string(TWO) + "{\"type\":\"Node\",\"name\":\"two\"}\n").c_str(),
               "[s] line 3, column 1 | plugin \"two\" | a plugin of this name stands in the scene already");
}

TEST_CASE(whatStandsMustNotReferToWhatWaits) {
    TestScene test;
    CHECK_TEXT(
        test.readLines(std::string(THREE) + "{\"type\":\"Node\",\"name\":\"a\",\"params\":{\"material\":\"three\"}}\n")
            .c_str(),
        "[s] line 3, column 48 | plugin \"a\", parameter \"material\" | refers to \"three\", which is deferred");
}

TEST_CASE(damagedRecordsAreRefusedWhenTheyAreRead) {
    TestScene test;
    CHECK_TEXT(
        test.readLines("{\"type\":\"Material\",\"name\":\"x\",\"deferred\":true,\"params\":{\"next\":5}}\n").c_str(),
        "[s] line 2, column 64 | plugin \"x\", parameter \"next\" | expected a plugin's name, [name, output] or null, "
        "found 5");
}

TEST_CASE(aRecordOutlivesWhatItRefersTo) {
    // The record waits for a plugin that is deleted; what is saved then reads back, and the record refers to nothing.
    TestScene test;
    const std::string record = "{\"type\":\"Material\",\"name\":\"x\",\"deferred\":true,\"params\":{\"next\":\"y\"}}\n";
    CHECK_TEXT(test.readLines("{\"type\":\"Material\",\"name\":\"y\"}\n" + record).c_str(), "");
    CHECK(test.contents.remove(test.find("y")));
    CHECK_TEXT(test.lines().c_str(), record.c_str());
    TestScene again;
    CHECK_TEXT(again.readLines(test.lines()).c_str(), "");
    CHECK(Offline::materialise(again.contents, "x", nullptr) != nullptr);
    CHECK_TEXT(again.lines().c_str(), "{\"type\":\"Material\",\"name\":\"x\",\"params\":{\"next\":null}}\n");
}

// A record that could be read once, and can be made no more, says why.
TEST_CASE(whyARecordCannotBeMade) {
    struct Row {
        const char* label;
        const char* types;  // added after the scene was read
        const char* error;
    };
    const Row rows[] = {
        {"as before", "{\"types\":[]}", ""},
        {"the parameter is gone",
         "{\"types\":[{\"name\":\"Material\",\"params\":[{\"name\":\"nest\",\"type\":\"plugin\"}]}]}",
         "[s] line 3, column 61 | plugin \"three\", parameter \"next\" | the type \"Material\" has no parameter "
         "\"next\" "
         "(did you mean \"nest\"?)"},
        {"the parameter is an int",
         "{\"types\":[{\"name\":\"Material\",\"params\":[{\"name\":\"next\",\"type\":\"int\"}]}]}",
         "[s] line 3, column 68 | plugin \"three\", parameter \"next\" | expected an integer, found \"a\""},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        TestScene test;
        CHECK_TEXT(test.readLines(std::string(A) + THREE).c_str(), "");
        CHECK_TEXT(takeError(test.contents.catalogue().addText(row.types, std::strlen(row.types), "t")).c_str(), "");
        KUtils::ErrorRecord* problem = nullptr;
        const KUtils::Plugin* plugin = Offline::materialise(test.contents, "three", nullptr, &problem);
        CHECK_EQ(plugin != nullptr, *row.error == '\0');
        CHECK_TEXT(takeError(problem).c_str(), row.error);
        if (plugin == nullptr) CHECK_TEXT(test.lines().c_str(), (std::string(A) + THREE).c_str());
    }
    // Its name was given to another plugin.
    TestScene test;
    CHECK_TEXT(test.readLines(scene()).c_str(), "");
    CHECK(test.contents.create(*test.contents.catalogue().find("Node"), "one") != nullptr);
    KUtils::ErrorRecord* problem = nullptr;
    CHECK(Offline::materialise(test.contents, "|one", nullptr, &problem) == nullptr);
    CHECK_TEXT(takeError(problem).c_str(),
               "[s] line 3, column 1 | plugin \"one\" | a plugin of this name stands in the scene already");
    CHECK(Offline::materialise(test.contents, "nobody", nullptr, &problem) == nullptr);
    CHECK(problem == nullptr);
}

TEST_CASE(aPluginOfItsNameStandsForARecord) {
    TestScene test;
    CHECK_TEXT(test.readLines(THREE).c_str(), "");
    CHECK(test.contents.create(*test.contents.catalogue().find("Node"), "three") != nullptr);
    CHECK_TEXT(test.lines().c_str(), "{\"type\":\"Node\",\"name\":\"three\"}\n");
    CHECK(test.contents.remove(test.find("three")));
    CHECK_TEXT(test.lines().c_str(), THREE);
}

TEST_CASE(aRecordWaitsOnWhenThereIsNoMemory) {
    TestScene test;
    CHECK_TEXT(test.readLines(std::string(A) + THREE).c_str(), "");
    int failures = 0;
    for (std::uint64_t nth = 1; test.find("three") == nullptr && nth < 1000; ++nth) {
        Offline::failAllocation(nth, false);
        const KUtils::Plugin* plugin = Offline::materialise(test.contents, "three", nullptr);
        Offline::failAllocation(0, false);
        if (plugin != nullptr) break;
        ++failures;
        CHECK_TEXT(test.lines().c_str(), (std::string(A) + THREE).c_str());
    }
    CHECK(failures > 2);
    CHECK(test.find("three") != nullptr);
}

TEST_CASE(extraScenesReferToTheMainOne) {
    TestScene main;
    CHECK_TEXT(main.readLines(std::string(A) + B).c_str(), "");
    TestScene extra(main);
    CHECK_TEXT(extra
                   .readLines("{\"type\":\"Material\",\"name\":\"b\"}\n"
                              "{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugins\":[\"a\",\"b\"]}}\n")
                   .c_str(),
               "");
    CHECK(extra.value("plugins")->getPlugin(0, 0.0, nullptr) == main.find("a"));
    CHECK(extra.value("plugins")->getPlugin(1, 0.0, nullptr) == extra.find("b"));
    TestScene wrong;
    CHECK_TEXT(wrong.readLines("{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":\"a\"}}\n").c_str(),
               "[s] line 2, column 47 | plugin \"p\", parameter \"plugin\" | there is no plugin \"a\"");
}
