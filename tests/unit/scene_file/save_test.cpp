// Saving to a file: the old content stays whatever happens; reading in pieces; and short texts of values.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "check.h"
#include "core/scene_file/json/line_splitter.h"
#include "test_scene.h"

namespace {

std::string contentOf(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (file == nullptr) return "(no file)";
    std::string content;
    char piece[4096];
    for (std::size_t length; (length = std::fread(piece, 1, sizeof piece, file)) != 0;) content.append(piece, length);
    std::fclose(file);
    return content;
}

void put(const std::string& path, const std::string& content) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    CHECK(file != nullptr);
    if (file == nullptr) return;
    CHECK_EQ(std::fwrite(content.data(), 1, content.size(), file), content.size());
    std::fclose(file);
}

// In the folder that the test runs in.
const std::string PATH = "scene_file_test.kscene";

std::string described(KUtils::KelmoPluginParameter* value, int longest) {
    std::string text;
    Offline::describeValue(
        value, longest,
        [](void* user, const char* part, std::size_t length) { static_cast<std::string*>(user)->append(part, length); },
        &text);
    return text;
}

}  // namespace

TEST_CASE(aSceneIsSavedAndReadAgain) {
    TestScene scene;
    std::string lines;
    for (int i = 0; i < 5000; ++i)
        lines += "{\"type\":\"Node\",\"name\":\"node " + std::to_string(i) + "\",\"params\":{\"visible\":true}}\n";
    CHECK_TEXT(scene.readLines(lines).c_str(), "");
    put(PATH, "old");
    CHECK_TEXT(takeError(Offline::saveScene(scene.contents, PATH.c_str())).c_str(), "");
    CHECK_TEXT(contentOf(PATH).c_str(), scene.text().c_str());

    TestScene again;
    CHECK_TEXT(takeError(Offline::readScene(again.contents, PATH.c_str(), nullptr)).c_str(), "");
    CHECK_TEXT(again.text().c_str(), scene.text().c_str());
    CHECK_EQ(again.contents.count(), 5000u);
    std::remove(PATH.c_str());
}

TEST_CASE(aLineMayBeLongerThanAPiece) {
    std::string line = "{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"ints\":[0";
    for (int i = 1; i < 100000; ++i) line += "," + std::to_string(i);
    line += "]}}\n";
    put(PATH, "{\"kelmo-scene\":1}\n" + line + "{\"type\":\"Node\",\"name\":\"n\"}");
    TestScene scene;
    CHECK_TEXT(takeError(Offline::readScene(scene.contents, PATH.c_str(), nullptr)).c_str(), "");
    CHECK(scene.find("n") != nullptr);
    CHECK_EQ(scene.value("ints")->getIntList(0.0).count, 100000);
    CHECK_EQ(scene.value("ints")->getInt(99999, 0.0), 99999);
    std::remove(PATH.c_str());
}

TEST_CASE(filesThatCannotBeReadAreNamed) {
    TestScene scene;
    CHECK_TEXT(takeError(Offline::readScene(scene.contents, "no such file", nullptr)).c_str(),
               "[no such file] the file cannot be read: No such file or directory");
    CHECK_TEXT(takeError(Offline::readScene(scene.contents, "no such file", "shown")).c_str(),
               "[shown] the file cannot be read: No such file or directory");
    CHECK_TEXT(takeError(Offline::readScene(scene.contents, ".", nullptr)).c_str(),
               "[.] the file cannot be read: it is a folder");
    CHECK_TEXT(takeError(Offline::readScene(scene.contents, nullptr, nullptr)).c_str(), "no file name");
}

TEST_CASE(filesThatCannotBeWrittenAreNamed) {
    TestScene scene;
    CHECK_TEXT(takeError(Offline::saveScene(scene.contents, "no such folder/x")).c_str(),
               "[no such folder/x] the file cannot be written: No such file or directory");
    CHECK_TEXT(takeError(Offline::saveScene(scene.contents, ".")).c_str(),
               "[.] the file cannot be written: it is a folder");
    CHECK_TEXT(takeError(Offline::saveScene(scene.contents, "")).c_str(), "no file name");
}

TEST_CASE(linesAreCutWhereverThePiecesEnd) {
    const std::string text = "one\n\ntwo\nthree";
    for (std::size_t size = 1; size <= text.size(); ++size) {
        Offline::LineSplitter splitter(100);
        std::string seen;
        const auto line = [&](const char* begin, const char* end) {
            seen += "<" + std::string(begin, end) + ">";
            return true;
        };
        for (std::size_t at = 0; at < text.size(); at += size)
            CHECK(splitter.feed(text.data() + at, std::min(size, text.size() - at), line));
        CHECK(splitter.finish(line));
        CHECK_TEXT(seen.c_str(), "<one><><two><three>");
    }
    Offline::LineSplitter shorter(4);
    CHECK(!shorter.feed("three", 5, [](const char*, const char*) { return true; }));
    CHECK(shorter.tooLong());
}

TEST_CASE(valuesAreDescribedShortly) {
    struct Row {
        const char* params;
        const char* param;
        const char* text;
    };
    const Row rows[] = {
        {R"("int":5)", "int", "5"},
        {R"("float":"nan")", "float", "\"nan\""},
        {R"("bool":true)", "bool", "true"},
        {R"("texture":["p","out"])", "texture", "[\"p\",\"out\"]"},
        {R"("string":"é\n")", "string", "\"é\\n\""},
        {R"("ints":[])", "ints", "[]"},
        {R"("ints":[1,2,3])", "ints", "[1,2,3]"},
        {R"("ints":[1,2,3,4])", "ints", "[1,2,3,... 4 in all]"},
        {R"("doubles":[1,2,3,4,5])", "doubles", "[1,2,3,... 5 in all]"},
        {R"("vectors":[[1,2,3],[1,2,3],[1,2,3],[1,2,3]])", "vectors", "[[1,2,3],[1,2,3],[1,2,3],... 4 in all]"},
        {R"("lists_ints":[[1,2,3,4],null])", "lists_ints", "[[1,2,3,... 4 in all],null]"},
        {R"("lists":[{"0":1},{"9":"a"},null,null])", "lists", "[{\"0\":1},{\"9\":\"a\"},null,... 4 in all]"},
        {R"("channels":[{"channel":1,"vertices":[[0,0,0]],"faces":[0,0,0,0]}])", "channels",
         "[{\"channel\":1,\"vertices\":[[0,0,0]],\"faces\":[0,0,0,... 4 in all]}]"},
        {R"("int":5)", "float", "(none)"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.params);
        TestScene scene;
        CHECK_TEXT(scene.readLines("{\"type\":\"Every\",\"name\":\"p\",\"params\":{" + std::string(row.params) + "}}\n")
                       .c_str(),
                   "");
        CHECK_TEXT(described(scene.value(row.param), 3).c_str(), row.text);
    }
}
