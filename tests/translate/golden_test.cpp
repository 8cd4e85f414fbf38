// The translated samples, made anew and compared byte by byte.
#include <cstring>

#include "translated.h"

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

INSTANTIATE_TEST_SUITE_P(Samples, Golden,
                         testing::Values(Case{"examples/scenes/studio.glb", "tests/scenes/studio_glb.kscene"},
                                         Case{"examples/scenes/studio.fbx", "tests/scenes/studio_fbx.kscene"},
                                         Case{"examples/scenes/studio.obj", "tests/scenes/studio_obj.kscene"},
                                         Case{"tests/translate/rich.gltf", "tests/scenes/rich_gltf.kscene"}),
                         [](const auto& info) { return std::string(strrchr(info.param.source, '.') + 1); });

}  // namespace
