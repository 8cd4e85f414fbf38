// The translated samples, made anew and compared byte by byte.
#include <cstdio>
#include <cstring>

#include "helpers/translated.h"

namespace {

struct Case {
    const char* source;
    const char* golden;
};

class Golden : public testing::TestWithParam<Case> {};

TEST_P(Golden, IsMadeAnewByteForByte) {
    const std::string expected = TestSupport::readFile(TestSupport::sourcePath(GetParam().golden));
    const std::string made = TestSupport::translatedText(TestSupport::sourcePath(GetParam().source));
    ASSERT_GT(expected.size(), 1000u);
    if (made == expected) return;
    std::size_t place = 0;
    while (place < made.size() && place < expected.size() && made[place] == expected[place]) ++place;
    const std::size_t from = place < 60 ? 0 : place - 60;
    ADD_FAILURE() << "differs at byte " << place << ": expected ..." << expected.substr(from, 120) << "\n made ..."
                  << made.substr(from, 120);
}

// What a command prints; the test fails when it does not end well.
std::string printedBy(const std::string& command) {
    FILE* pipe = popen(command.c_str(), "r");
    const std::string text = TestSupport::readAll(fileno(pipe));
    EXPECT_EQ(pclose(pipe), 0) << command;
    return text;
}

// The catalogue knows every type and parameter of it, and the host saves it as it was translated.
TEST_P(Golden, IsSavedByteForByte) {
    const std::string path = TestSupport::sourcePath(GetParam().golden);
    EXPECT_TRUE(printedBy("'" OFFLINE_PROGRAM "' cat '" + path + "'") == TestSupport::readFile(path));
}

INSTANTIATE_TEST_SUITE_P(Samples, Golden,
                         testing::Values(Case{"examples/scenes/studio.glb", "tests/scenes/studio_glb.kscene"},
                                         Case{"examples/scenes/studio.fbx", "tests/scenes/studio_fbx.kscene"},
                                         Case{"examples/scenes/studio.obj", "tests/scenes/studio_obj.kscene"},
                                         Case{"tests/translate/rich.gltf", "tests/scenes/rich_gltf.kscene"}),
                         [](const auto& info) { return std::string(strrchr(info.param.source, '.') + 1); });

}  // namespace
