// Which files count as parts of a scene.
#include "translate/child/input/scene_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <assimp/IOStream.hpp>

#include "helpers/support.h"

namespace {

using Translation::SceneFolder;
using Place = SceneFolder::Place;

class Folder : public testing::Test {
  protected:
    Folder() {
        for (const char* name : {"scenes", "scenes/in", "scenes-beside"}) mkdir(outer_.path(name).c_str(), 0755);
        for (const char* name : {"scenes/a.gltf", "scenes/in/b.bin", "secret", "scenes-beside/c.bin"}) {
            TestSupport::writeFile(outer_.path(name), "0123456789");
        }
        EXPECT_EQ(symlink("../secret", outer_.path("scenes/out").c_str()), 0);
        EXPECT_EQ(symlink("in/b.bin", outer_.path("scenes/within").c_str()), 0);
        EXPECT_EQ(symlink("..", outer_.path("scenes/up").c_str()), 0);
        EXPECT_EQ(symlink("nowhere", outer_.path("scenes/dangling").c_str()), 0);
    }

    TestSupport::TemporaryFolder outer_;
};

TEST_F(Folder, TellsWhereAFileLies) {
    const SceneFolder folder(outer_.path("scenes/a.gltf"), 100);
    const struct {
        std::string name;
        Place place;
    } cases[] = {
        {"a.gltf", Place::inside},
        {"in/b.bin", Place::inside},
        {"in\\b.bin", Place::inside},
        {"in/../in/b.bin", Place::inside},
        {"within", Place::inside},
        {outer_.path("scenes/in/b.bin"), Place::inside},
        {"up/scenes/a.gltf", Place::inside},
        {"out", Place::outside},
        {"../secret", Place::outside},
        {"..\\secret", Place::outside},
        {"up/secret", Place::outside},
        {"up", Place::outside},
        {"../scenes-beside/c.bin", Place::outside},
        {"/etc/passwd", Place::outside},
        {"gone", Place::missing},
        {"dangling", Place::missing},
        {"../gone", Place::missing},
    };
    for (const auto& row : cases) EXPECT_EQ(folder.placeOf(row.name), row.place) << row.name;
}

TEST_F(Folder, OpensOnlyWhatLiesInside) {
    SceneFolder folder(outer_.path("scenes/a.gltf"), 100);
    Assimp::IOStream* stream = folder.Open((outer_.path("scenes") + "/in/b.bin").c_str(), "rb");
    ASSERT_NE(stream, nullptr);
    EXPECT_EQ(stream->FileSize(), 10u);
    char text[16] = {};
    EXPECT_EQ(stream->Read(text, 4, 3), 2u);
    EXPECT_EQ(stream->Seek(2, aiOrigin_SET), aiReturn_SUCCESS);
    EXPECT_EQ(stream->Tell(), 2u);
    EXPECT_EQ(stream->Read(text, 1, 3), 3u);
    EXPECT_EQ(std::string(text, 3), "234");
    EXPECT_EQ(stream->Read(text, SIZE_MAX, 2), 0u);
    EXPECT_EQ(stream->Write("x", 1, 1), 0u);
    folder.Close(stream);

    EXPECT_EQ(folder.Open((outer_.path("scenes") + "/out").c_str(), "rb"), nullptr);
    EXPECT_EQ(folder.Open((outer_.path("scenes") + "/in").c_str(), "rb"), nullptr);
    EXPECT_EQ(folder.Open((outer_.path("scenes") + "/gone").c_str(), "rb"), nullptr);
    EXPECT_EQ(folder.Open((outer_.path("scenes") + "/a.gltf").c_str(), "wb"), nullptr);
    EXPECT_FALSE(folder.Exists((outer_.path("scenes") + "/out").c_str()));
    EXPECT_TRUE(folder.Exists((outer_.path("scenes") + "/within").c_str()));
    EXPECT_EQ(folder.outside(), std::vector<std::string>{"out"});
    EXPECT_EQ(folder.missing(), (std::vector<std::string>{"in", "gone"}));
}

TEST_F(Folder, RefusesFilesThatAreTooLarge) {
    SceneFolder folder(outer_.path("scenes/a.gltf"), 9);
    EXPECT_EQ(folder.Open((outer_.path("scenes") + "/in/b.bin").c_str(), "rb"), nullptr);
    EXPECT_EQ(folder.tooLarge(), std::vector<std::string>{"in/b.bin"});
}

}  // namespace
