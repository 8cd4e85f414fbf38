// What the translation tells: how numbers are meant, what was renamed, what was left out.
#include "helpers/translated.h"

namespace {

std::string reportOf(const char* file) {
    const auto result = TestSupport::translateFile(TestSupport::sourcePath(file));
    EXPECT_TRUE(result.ok()) << result.message;
    return result.report;
}

struct Case {
    const char* name;
    const char* file;
    const char* report;
};

const Case CASES[] = {
    {"Glb", "examples/scenes/studio.glb",
     R"~({"event":"source","file":"studio.glb","kind":"GLB","generator":"Khronos glTF Blender I/O v3.4.50"}
{"event":"unit","metres":1,"why":"always so in glTF"}
{"event":"up","axis":"y","why":"always so in glTF"}
{"event":"texture","name":"checker@texture","file":"studio.glb","state":"inside the scene"}
{"event":"totals","plugins":42,"deferred":0}
{"event":"done"}
)~"},
    {"Fbx", "examples/scenes/studio.fbx",
     R"~({"event":"source","file":"studio.fbx","kind":"FBX","generator":"Blender (stable FBX IO) - 3.4.1 - 4.37.1"}
{"event":"unit","metres":0.01,"why":"the settings of the file"}
{"event":"up","axis":"y","why":"the settings of the file"}
{"event":"texture","name":"checker.png@texture","file":"checker.png","state":"found"}
{"event":"derived","what":"the kind of the light \"key\"","how":"written as an area light: the file does not make it clear"}
{"event":"totals","plugins":43,"deferred":0}
{"event":"done"}
)~"},
    {"Obj", "examples/scenes/studio.obj",
     R"~({"event":"source","file":"studio.obj","kind":"OBJ"}
{"event":"unit","metres":null,"why":"the file does not say"}
{"event":"up","axis":null,"why":"the file does not say"}
{"event":"texture","name":"checker.png@texture","file":"checker.png","state":"found"}
{"event":"derived","what":"roughness","how":"1 - sqrt(shininess / 1000)"}
{"event":"totals","plugins":34,"deferred":0}
{"event":"done"}
)~"},
    {"Gltf", "tests/translate/rich.gltf",
     R"~({"event":"source","file":"rich.gltf","kind":"glTF","generator":"by hand"}
{"event":"unit","metres":1,"why":"always so in glTF"}
{"event":"up","axis":"y","why":"always so in glTF"}
{"event":"renamed","kind":"node","from":"karte","to":"karte_3"}
{"event":"renamed","kind":"material","from":"karte","to":"karte_4"}
{"event":"left-out","what":"2 points and lines of the mesh \"draht\"","why":"a mesh is made of triangles"}
{"event":"texture","name":"checker.png@texture","file":"checker.png","state":"missing"}
{"event":"texture","name":"outside.png@texture","file":"../outside.png","state":"missing"}
{"event":"left-out","what":"the factor on the metalness of \"lack\"","why":"a texture stands in its place"}
{"event":"texture","name":"fehlt.png@texture","file":"fehlt.png","state":"missing"}
{"event":"left-out","what":"1 of 3 materials","why":"nothing in the file uses them"}
{"event":"totals","plugins":30,"deferred":0}
{"event":"done"}
)~"},
};

class Reports : public testing::TestWithParam<Case> {};

TEST_P(Reports, TellWhatWasFound) { EXPECT_EQ(reportOf(GetParam().file), GetParam().report); }

INSTANTIATE_TEST_SUITE_P(Samples, Reports, testing::ValuesIn(CASES), [](const auto& info) { return info.param.name; });

// A scene of another unit, with another axis up: told, and nothing is turned or scaled.
TEST(Reports, TellOfUnitsAndAxesAsTheFileSays) {
    std::string text = TestSupport::readFile(TestSupport::sourcePath("examples/scenes/studio.fbx"));
    const auto change = [&text](const std::string& name, const std::string& kind, const std::string& value) {
        const std::size_t property = text.find(name);
        ASSERT_NE(property, std::string::npos);
        const std::size_t place = text.find(kind, property);
        ASSERT_LT(place, property + 60);
        text.replace(place + kind.size(), value.size(), value);
    };
    change("UpAxisS", std::string("\0\0\0\0I", 5), std::string("\x02\0\0\0", 4));
    const double inch = 2.54;
    change("UnitScaleFactorS", std::string("\0\0\0\0D", 5),
           std::string(reinterpret_cast<const char*>(&inch), sizeof inch));
    const TestSupport::TemporaryFolder folder;
    TestSupport::writeFile(folder.path("a.fbx"), text);

    const auto result = TestSupport::translateFile(folder.path("a.fbx"));
    ASSERT_TRUE(result.ok()) << result.message;
    EXPECT_NE(result.report.find("{\"event\":\"unit\",\"metres\":0.0254,"), std::string::npos) << result.report;
    EXPECT_NE(result.report.find("{\"event\":\"up\",\"axis\":\"z\","), std::string::npos) << result.report;
    const TestSupport::Scene scene(TestSupport::readAll(result.scene.get()));
    EXPECT_STREQ(scene.header()["up"].GetString(), "z");
    EXPECT_EQ(scene.header()["unit"].GetDouble(), 0.0254);
    const TestSupport::Scene plain(TestSupport::translatedText(TestSupport::sourcePath("examples/scenes/studio.fbx")));
    EXPECT_TRUE(scene.param("tore_émail", "transform") == plain.param("tore_émail", "transform"));
}

TEST(Reports, TellOfTexturesOutsideAndMaterialsThatAreMissing) {
    const TestSupport::TemporaryFolder folder;
    TestSupport::writeFile(folder.path("a.obj"), "mtllib gone.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n");
    const auto missing = TestSupport::translateFile(folder.path("a.obj"));
    ASSERT_TRUE(missing.ok()) << missing.message;
    // The named one, and the one beside the scene that would stand in for it; nothing of where else the reader looks.
    const std::string lines =
        "{\"event\":\"missing\",\"file\":\"gone.mtl\"}\n{\"event\":\"missing\",\"file\":\"a.mtl\"}\n";
    const std::size_t told = missing.report.find(lines);
    ASSERT_NE(told, std::string::npos) << missing.report;
    EXPECT_EQ(missing.report.find("\"event\":\"missing\"", told + lines.size()), std::string::npos) << missing.report;

    TestSupport::writeFile(folder.path("b.mtl"), "newmtl m\nKd 1 1 1\nmap_Kd /dev/null\n");
    TestSupport::writeFile(folder.path("b.obj"), "mtllib b.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nusemtl m\nf 1 2 3\n");
    const auto outside = TestSupport::translateFile(folder.path("b.obj"));
    ASSERT_TRUE(outside.ok()) << outside.message;
    EXPECT_NE(outside.report.find("\"file\":\"/dev/null\",\"state\":\"outside the scene's folder\""), std::string::npos)
        << outside.report;
}

}  // namespace
