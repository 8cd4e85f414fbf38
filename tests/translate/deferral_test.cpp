// Which records wait for an export request, and that none that stays refers to one that waits.
#include <algorithm>
#include <set>

#include "helpers/translated.h"

namespace {

struct Case {
    const char* file;
    const char* kinds;
    std::vector<std::string> deferred;
};

const Case CASES[] = {
    {"examples/scenes/studio.glb", "", {}},
    {"examples/scenes/studio.glb", "materials,textures", {}},
    {"examples/scenes/studio.glb", "cameras", {"shotCam@camera"}},
    {"examples/scenes/studio.glb", "nodes", {"key"}},
    {"examples/scenes/studio.glb", "nodes,cameras", {"key", "shotCam", "shotCam@camera"}},
    {"examples/scenes/studio.fbx", "materials,textures,cameras,nodes", {"shotCam", "shotCam@camera"}},
    {"examples/scenes/studio.obj", "materials,textures,cameras,nodes", {}},
    {"tests/translate/rich.gltf", "materials,textures", {}},
    {"tests/translate/rich.gltf",
     "nodes,cameras",
     {"karte_2", "unter", "étage \"haut\"\tné", "eye", "plan", "leer", "eye@camera", "plan@camera"}},
};

class Deferral : public testing::TestWithParam<Case> {};

void collectTexts(const rapidjson::Value& value, std::vector<std::string>& texts) {
    if (value.IsString()) texts.emplace_back(value.GetString());
    if (value.IsArray()) {
        for (const auto& part : value.GetArray()) collectTexts(part, texts);
    }
}

TEST_P(Deferral, MarksWhatNothingVisibleRefersTo) {
    const Case& row = GetParam();
    const TestSupport::Scene scene(TestSupport::translatedText(TestSupport::sourcePath(row.file), row.kinds));
    EXPECT_EQ(scene.deferredNames(), row.deferred);

    const std::set<std::string> waiting(row.deferred.begin(), row.deferred.end());
    for (std::size_t i = 1; i < scene.lines().size(); ++i) {
        const rapidjson::Value& line = scene.lines()[i];
        if (line.HasMember("deferred") || !line.HasMember("params")) continue;
        for (const char* key : {"parent", "geometry", "material", "base_color", "color", "normal", "placement"}) {
            std::vector<std::string> texts;
            if (line["params"].HasMember(key)) collectTexts(line["params"][key], texts);
            for (const std::string& text : texts) EXPECT_EQ(waiting.count(text), 0u) << line["name"].GetString();
        }
    }
}

// Marking is all that it does.
TEST_P(Deferral, ChangesNothingElse) {
    const Case& row = GetParam();
    std::string marked = TestSupport::translatedText(TestSupport::sourcePath(row.file), row.kinds);
    const std::string mark = ",\"deferred\":true";
    for (std::size_t place; (place = marked.find(mark)) != std::string::npos;) marked.erase(place, mark.size());
    EXPECT_TRUE(marked == TestSupport::translatedText(TestSupport::sourcePath(row.file)));
}

// A material that nothing uses, and its image; the image stays when its kind is not to be deferred, and so
// does an image that a material in use shares.
TEST(DeferredMaterials, AreThoseThatNothingUses) {
    const TestSupport::TemporaryFolder folder;
    TestSupport::writeFile(folder.path("a.mtl"),
                           "newmtl used\nmap_Kd shared.png\nnewmtl spare\nmap_Kd own.png\nmap_Ks shared.png\n");
    TestSupport::writeFile(folder.path("a.obj"),
                           "mtllib a.mtl\no thing\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl used\nf 1 2 3\n");
    const struct {
        const char* kinds;
        std::vector<std::string> deferred;
    } cases[] = {
        {"", {}},
        {"materials", {"spare"}},
        {"textures", {}},
        {"textures,materials", {"own.png@texture", "spare"}},
    };
    for (const auto& row : cases) {
        const TestSupport::Scene scene(TestSupport::translatedText(folder.path("a.obj"), row.kinds));
        EXPECT_EQ(scene.names("MtlSurface"), (std::vector<std::string>{"used", "spare"}));
        EXPECT_EQ(scene.deferredNames(), row.deferred) << row.kinds;
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, Deferral, testing::ValuesIn(CASES));

}  // namespace
