// Files that are no scenes, or were: each ends in its kind of problem and its sentence, whole and in time.
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <linux/capability.h>
#include <chrono>
#include <cstring>
#include <functional>

#include "helpers/translated.h"

namespace {

using TestSupport::TemporaryFolder;
using Translation::Problem;

std::string sample(const char* ending) {
    return TestSupport::readFile(TestSupport::sourcePath(std::string("examples/scenes/studio.") + ending));
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t place = text.find(from);
    EXPECT_NE(place, std::string::npos) << from;
    return text.replace(place, from.size(), to);
}

std::string flipped(std::string text, std::size_t place, int bit) {
    text[place] = static_cast<char>(text[place] ^ (1 << bit));
    return text;
}

std::string rich() { return TestSupport::readFile(TestSupport::sourcePath("tests/translate/rich.gltf")); }

// A small scene with a buffer in a file of its own.
std::string withBuffer(const std::string& uri) {
    return R"({"asset":{"version":"2.0"},"scene":0,"scenes":[{"nodes":[0]}],"nodes":[{"mesh":0}],)"
           R"("meshes":[{"primitives":[{"attributes":{"POSITION":0}}]}],)"
           R"("accessors":[{"bufferView":0,"componentType":5126,"count":3,"type":"VEC3"}],)"
           R"("bufferViews":[{"buffer":0,"byteLength":36}],"buffers":[{"byteLength":36,"uri":")" +
           uri + R"("}]})";
}

std::string glbHeader(std::uint32_t version, std::uint32_t length, const std::string& rest) {
    std::string text = "glTF";
    for (std::uint32_t word : {version, length}) {
        for (int i = 0; i < 4; ++i) text += static_cast<char>(word >> (8 * i));
    }
    return text + rest;
}

std::string nested(int depth) {
    return R"({"asset":{"version":"2.0"},"extras":)" + std::string(depth, '[') + std::string(depth, ']') + "}";
}

constexpr char TRIANGLE[] = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";

struct Case {
    const char* name;
    Problem problem;
    const char* message;  // @ stands for the path, * for any text
    const char* file;
    std::function<std::string()> contents;
};

// What the reader itself objects to.
constexpr char READER[] = "\"@\" is damaged: *.";

const Case CASES[] = {
    {"EmptyGlb", Problem::empty, "\"@\" cannot be read: it is empty.", "a.glb", [] { return ""; }},
    {"EmptyObj", Problem::empty, "\"@\" cannot be read: it is empty.", "a.obj", [] { return ""; }},
    {"EmptyFbx", Problem::empty, "\"@\" cannot be read: it is empty.", "a.fbx", [] { return ""; }},
    {"OtherEnding", Problem::otherKind, "\"@\" cannot be read: its name does not end in .glb, .gltf, .fbx or .obj.",
     "a.blend", [] { return sample("glb"); }},
    {"NoEnding", Problem::otherKind, "\"@\" cannot be read: its name does not end in .glb, .gltf, .fbx or .obj.",
     "studio", [] { return sample("glb"); }},
    {"OnlyAnEnding", Problem::otherKind, "\"@\" cannot be read: it is not an OBJ file.", ".obj",
     [] { return "hello\n"; }},
    {"PictureAsGlb", Problem::otherKind, "\"@\" cannot be read: it is not a GLB file.", "a.glb",
     [] { return TestSupport::readFile(TestSupport::sourcePath("examples/scenes/checker.png")); }},
    {"PictureAsFbx", Problem::otherKind, "\"@\" cannot be read: it is not an FBX file.", "a.fbx",
     [] { return TestSupport::readFile(TestSupport::sourcePath("examples/scenes/checker.png")); }},
    {"PictureAsObj", Problem::otherKind, "\"@\" cannot be read: it is not an OBJ file.", "a.obj",
     [] { return TestSupport::readFile(TestSupport::sourcePath("examples/scenes/checker.png")); }},
    {"PictureAsGltf", Problem::otherKind, "\"@\" cannot be read: it is not a glTF file.", "a.gltf",
     [] { return TestSupport::readFile(TestSupport::sourcePath("examples/scenes/checker.png")); }},
    {"GlbAsFbx", Problem::otherKind, "\"@\" cannot be read: it is not an FBX file.", "a.fbx",
     [] { return sample("glb"); }},
    {"GlbAsGltf", Problem::otherKind, "\"@\" cannot be read: it is not a glTF file.", "a.gltf",
     [] { return sample("glb"); }},
    {"FbxAsObj", Problem::otherKind, "\"@\" cannot be read: it is not an OBJ file.", "a.obj",
     [] { return sample("fbx"); }},
    {"OtherJson", Problem::otherKind, "\"@\" cannot be read: its JSON is not that of a glTF file.", "a.gltf",
     [] { return R"({"name":"package","version":"1.0"})"; }},
    {"JsonList", Problem::otherKind, "\"@\" cannot be read: it is not a glTF file.", "a.gltf", [] { return "[1,2]"; }},
    {"ProseAsObj", Problem::otherKind, "\"@\" cannot be read: it is not an OBJ file.", "a.obj",
     [] { return "Dear all,\nthe scene is attached.\n"; }},

    {"GlbCutInHeader", Problem::damaged, "\"@\" is damaged: it ends within its header.", "a.glb",
     [] { return sample("glb").substr(0, 13); }},
    {"GlbCutInJson", Problem::damaged,
     "\"@\" is damaged: it is cut off: it says that it has 476560 bytes and has 3000.", "a.glb",
     [] { return sample("glb").substr(0, 3000); }},
    {"GlbCutInBuffer", Problem::damaged,
     "\"@\" is damaged: it is cut off: it says that it has 476560 bytes and has 200000.", "a.glb",
     [] { return sample("glb").substr(0, 200000); }},
    {"GlbCutAtItsEnd", Problem::damaged,
     "\"@\" is damaged: it is cut off: it says that it has 476560 bytes and has 476559.", "a.glb",
     [] { return sample("glb").substr(0, 476559); }},
    {"GlbOfVersionOne", Problem::damaged, "\"@\" is damaged: its version is 1, and only 2 is read.", "a.glb",
     [] { return sample("glb").replace(4, 1, "\x01"); }},
    {"GlbThatSaysItIsHuge", Problem::damaged,
     "\"@\" is damaged: it is cut off: it says that it has 4294967295 bytes and has 476560.", "a.glb",
     [] { return sample("glb").replace(8, 4, "\xff\xff\xff\xff"); }},
    {"GlbThatSaysItIsTiny", Problem::damaged, "\"@\" is damaged: it says that it has 4 bytes, less than its header.",
     "a.glb", [] { return glbHeader(2, 4, std::string(20, ' ')); }},
    {"GlbChunkTooLong", Problem::damaged, "\"@\" is damaged: a chunk reaches beyond its end.", "a.glb",
     [] { return sample("glb").replace(12, 4, "\xff\xff\xff\x7f"); }},
    {"GlbFirstChunkBinary", Problem::damaged, "\"@\" is damaged: its first chunk is not JSON.", "a.glb",
     [] { return sample("glb").replace(16, 4, std::string("BIN\0", 4)); }},
    {"GlbFlippedBrace", Problem::damaged, "\"@\" is damaged: its JSON breaks at byte 0: *.", "a.glb",
     [] { return flipped(sample("glb"), 20, 1); }},
    {"GlbFlippedQuote", Problem::damaged, "\"@\" is damaged: its JSON breaks at byte *.", "a.glb",
     [] { return flipped(sample("glb"), 21, 3); }},

    {"GltfCut", Problem::damaged, "\"@\" is damaged: its JSON breaks at byte 1000: *.", "a.gltf",
     [] { return rich().substr(0, 1000); }},
    {"GltfDeep", Problem::damaged, "\"@\" is damaged: its JSON is nested deeper than 256 levels.", "a.gltf",
     [] { return nested(300); }},
    {"GltfVeryDeep", Problem::damaged, "\"@\" is damaged: its JSON is nested deeper than 256 levels.", "a.gltf",
     [] { return nested(3000000); }},
    {"GltfHugeNumber", Problem::damaged, "\"@\" is damaged: its JSON breaks at byte *: number too big*.", "a.gltf",
     [] { return replaced(rich(), "\"intensity\": 3", "\"intensity\": 3" + std::string(2000, '0')); }},
    {"GltfHugeExponent", Problem::damaged, "\"@\" is damaged: its JSON breaks at byte *: number too big*.", "a.gltf",
     [] { return replaced(rich(), "\"intensity\": 3", "\"intensity\": 3e999999"); }},
    {"GltfCountHuge", Problem::damaged, READER, "a.gltf",
     [] { return replaced(rich(), "\"count\": 4", "\"count\": 999999999"); }},
    {"GltfViewBeyondBuffer", Problem::damaged, READER, "a.gltf",
     [] { return replaced(rich(), "\"byteLength\": 48", "\"byteLength\": 999999999"); }},
    {"GltfNodeOutOfRange", Problem::damaged, READER, "a.gltf",
     [] { return replaced(rich(), "\"mesh\": 2", "\"mesh\": 200"); }},
    {"GltfNothingInIt", Problem::damaged, "\"@\" is damaged: *.", "a.gltf",
     [] { return R"({"asset":{"version":"2.0"}})"; }},
    {"GltfBufferMissing", Problem::damaged, "\"@\" is damaged: it refers to \"gone.bin\", which does not exist.",
     "a.gltf", [] { return withBuffer("gone.bin"); }},
    {"GltfBufferAbove", Problem::outside, "\"@\" cannot be read: it refers to \"*\", which lies outside of its folder.",
     "sub/a.gltf", [] { return withBuffer("../secret.bin"); }},
    {"GltfBufferThroughLink", Problem::outside,
     "\"@\" cannot be read: it refers to \"link.bin\", which lies outside of its folder.", "sub/a.gltf",
     [] { return withBuffer("link.bin"); }},
    {"GltfBufferInLinkedFolder", Problem::outside,
     "\"@\" cannot be read: it refers to \"up/secret.bin\", which lies outside of its folder.", "sub/a.gltf",
     [] { return withBuffer("up/secret.bin"); }},

    {"FbxCutInHeader", Problem::damaged, READER, "a.fbx", [] { return sample("fbx").substr(0, 40); }},
    {"FbxCutInTheMiddle", Problem::damaged, READER, "a.fbx", [] { return sample("fbx").substr(0, 145000); }},
    {"FbxCutNearItsEnd", Problem::damaged, READER, "a.fbx", [] { return sample("fbx").substr(0, 280000); }},
    {"FbxFlippedOffset", Problem::damaged, READER, "a.fbx", [] { return flipped(sample("fbx"), 30, 6); }},
    {"FbxPropertyHuge", Problem::damaged, READER, "a.fbx",
     [] { return sample("fbx").replace(35, 4, "\xff\xff\xff\x7f"); }},
    {"FbxOnlyItsName", Problem::damaged, READER, "a.fbx", [] { return "; FBX 7.4.0 project file\n"; }},
    {"FbxTextOpenBraces", Problem::damaged, READER, "a.fbx",
     [] { return "; FBX 7.4.0 project file\nObjects: {\n  Model: {\n"; }},

    {"ObjNothingInIt", Problem::damaged, READER, "a.obj", [] { return "o nothing\n"; }},
    {"ObjFaceWithoutVertices", Problem::damaged, READER, "a.obj", [] { return "f 1 2 3\n"; }},
    {"ObjFaceOutOfRange", Problem::damaged, READER, "a.obj",
     [] { return replaced(TRIANGLE, "f 1 2 3", "f 1 2 99999999"); }},
    {"ObjFaceHuge", Problem::damaged, READER, "a.obj",
     [] { return replaced(TRIANGLE, "f 1 2 3", "f 1 2 99999999999999999999"); }},
    {"ObjVertexWithoutNumbers", Problem::damaged, READER, "a.obj",
     [] { return replaced(TRIANGLE, "v 1 0 0", "v one zero zero"); }},
    {"ObjMaterialsThroughLink", Problem::outside,
     "\"@\" cannot be read: it refers to \"link.mtl\", which lies outside of its folder.", "sub/a.obj",
     [] { return std::string("mtllib link.mtl\n") + TRIANGLE; }},
    {"ObjMaterialsAbove", Problem::outside,
     "\"@\" cannot be read: it refers to \"*\", which lies outside of its folder.", "sub/a.obj",
     [] { return std::string("mtllib ../secret.bin\n") + TRIANGLE; }},
};

// A text against a pattern in which * is any text.
bool matches(const std::string& text, const std::string& pattern) {
    const std::size_t star = pattern.find('*');
    if (star == std::string::npos) return text == pattern;
    if (text.compare(0, star, pattern, 0, star) != 0) return false;
    const std::string rest = pattern.substr(star + 1);
    for (std::size_t i = star; i <= text.size(); ++i) {
        if (matches(text.substr(i), rest)) return true;
    }
    return false;
}

std::string withPath(std::string pattern, const std::string& path) {
    return pattern.replace(pattern.find('@'), 1, path);
}

class Damaged : public testing::TestWithParam<Case> {};

TEST_P(Damaged, EndsInItsSentence) {
    const Case& row = GetParam();
    const TemporaryFolder folder;
    mkdir(folder.path("sub").c_str(), 0755);
    TestSupport::writeFile(folder.path("secret.bin"), std::string(36, '\1'));
    ASSERT_EQ(symlink(folder.path("secret.bin").c_str(), folder.path("sub/link.bin").c_str()), 0);
    ASSERT_EQ(symlink("../secret.bin", folder.path("sub/link.mtl").c_str()), 0);
    ASSERT_EQ(symlink("..", folder.path("sub/up").c_str()), 0);
    const std::string path = folder.path(row.file);
    TestSupport::writeFile(path, row.contents());

    const auto begin = std::chrono::steady_clock::now();
    const Translation::TranslationResult result = TestSupport::translateFile(path);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    EXPECT_STREQ(Translation::problemName(result.problem), Translation::problemName(row.problem)) << result.message;
    EXPECT_TRUE(matches(result.message, withPath(row.message, path))) << result.message;
    EXPECT_FALSE(result.scene);
    EXPECT_LT(took.count(), 30);
}

INSTANTIATE_TEST_SUITE_P(Files, Damaged, testing::ValuesIn(CASES), [](const auto& info) { return info.param.name; });

TEST(Files, ThatAreNotThere) {
    const TemporaryFolder folder;
    const std::string gone = folder.path("gone.glb");
    const auto result = TestSupport::translateFile(gone);
    EXPECT_EQ(result.problem, Problem::missing);
    EXPECT_EQ(result.message, "\"" + gone + "\" cannot be read: there is no such file.");

    const std::string below = TestSupport::sourcePath("examples/scenes/studio.glb/inside.glb");
    EXPECT_EQ(TestSupport::translateFile(below).problem, Problem::missing);
}

TEST(Files, ThatAreFoldersOrPipes) {
    const TemporaryFolder folder;
    const std::string path = folder.path("a.glb");
    ASSERT_EQ(mkdir(path.c_str(), 0755), 0);
    const auto asFolder = TestSupport::translateFile(path);
    EXPECT_EQ(asFolder.problem, Problem::folder);
    EXPECT_EQ(asFolder.message, "\"" + path + "\" cannot be read: it is a folder.");

    const std::string pipe = folder.path("b.glb");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0644), 0);
    const auto asPipe = TestSupport::translateFile(pipe);
    EXPECT_EQ(asPipe.problem, Problem::unreadable);
    EXPECT_EQ(asPipe.message, "\"" + pipe + "\" cannot be read: it is not a regular file.");
}

TEST(Files, ThatLinkInACircle) {
    const TemporaryFolder folder;
    const std::string path = folder.path("a.obj");
    ASSERT_EQ(symlink("a.obj", path.c_str()), 0);
    const auto result = TestSupport::translateFile(path);
    EXPECT_EQ(result.problem, Problem::unreadable);
    EXPECT_EQ(result.message, "\"" + path + "\" cannot be read: Too many levels of symbolic links.");
}

TEST(Files, ThatMayNotBeRead) {
    const TemporaryFolder folder;
    const std::string path = folder.path("a.obj");
    TestSupport::writeFile(path, TRIANGLE);
    ASSERT_EQ(chmod(path.c_str(), 0), 0);

    // The superuser reads everything: in a process of its own the right to do so is given up first.
    const pid_t process = fork();
    if (process == 0) {
        prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
        prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
        const auto result = TestSupport::translateFile(path);
        const bool good = result.problem == Problem::unreadable &&
                          result.message == "\"" + path + "\" cannot be read: permission is denied.";
        if (!good) fprintf(stderr, "%s\n", result.message.c_str());
        _exit(good ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    EXPECT_EQ(status, 0);
}

TEST(Files, ThatAreTooLarge) {
    Translation::Limits limits;
    limits.inputBytes = 1000;
    const std::string scene = TestSupport::sourcePath("examples/scenes/studio.glb");
    const auto result = TestSupport::translateFile(scene, "", limits);
    EXPECT_EQ(result.problem, Problem::tooLarge);
    EXPECT_EQ(result.message, "\"" + scene + "\" cannot be read: it has 476560 bytes, and at most 1000 are read.");

    const TemporaryFolder folder;
    const std::string small = folder.path("a.gltf");
    TestSupport::writeFile(small, withBuffer("large.bin"));
    TestSupport::writeFile(folder.path("large.bin"), std::string(1001, '\0'));
    const auto companion = TestSupport::translateFile(small, "", limits);
    EXPECT_EQ(companion.problem, Problem::tooLarge);
    EXPECT_EQ(companion.message, "\"" + small +
                                     "\" cannot be read: the file \"large.bin\" that belongs to it has more than "
                                     "1000 bytes.");
}

TEST(Files, WithNamesThatAreNotText) {
    const TemporaryFolder folder;
    const std::string path = folder.path("a\xff\xc3.glb");
    const auto result = TestSupport::translateFile(path);
    EXPECT_EQ(result.problem, Problem::missing);
    EXPECT_EQ(result.message, "\"" + path + "\" cannot be read: there is no such file.");
}

TEST(Files, ThatLieBesideTheSceneAreRead) {
    const TemporaryFolder folder;
    TestSupport::writeFile(folder.path("a.gltf"), withBuffer("in/here.bin"));
    ASSERT_EQ(mkdir(folder.path("in").c_str(), 0755), 0);
    TestSupport::writeFile(folder.path("in/here.bin"), std::string(36, '\0'));
    EXPECT_TRUE(TestSupport::translateFile(folder.path("a.gltf")).ok());

    // A link to a scene elsewhere: the files beside the scene itself count.
    const TemporaryFolder other;
    ASSERT_EQ(symlink(folder.path("a.gltf").c_str(), other.path("link.gltf").c_str()), 0);
    EXPECT_TRUE(TestSupport::translateFile(other.path("link.gltf")).ok());
}

// Every byte of a file wrong in its turn would take too long: some hundred places, the same in every run.
class Mangled : public testing::TestWithParam<const char*> {};

TEST_P(Mangled, NeverTakesTheCallerAlong) {
    const std::string whole = sample(GetParam());
    const TemporaryFolder folder;
    const std::string path = folder.path(std::string("a.") + GetParam());
    TestSupport::writeFile(folder.path("studio.mtl"), sample("mtl"));
    std::uint64_t state = 12345;
    const auto random = [&state](std::size_t below) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<std::size_t>((state >> 33) % below);
    };
    unsigned refused = 0;
    for (int round = 0; round < 60; ++round) {
        std::string text = whole;
        if (round % 3 == 0) text.resize(1 + random(text.size() - 1));
        if (round % 3 == 1) text.replace(random(text.size() - 4), 4, "\xff\xff\xff\x7f");
        for (int flips = round % 3 == 2 ? 1 + static_cast<int>(random(20)) : 0; flips > 0; --flips) {
            text = flipped(std::move(text), random(random(2) == 0 ? 2000 : text.size()), static_cast<int>(random(8)));
        }
        TestSupport::writeFile(path, text);
        const auto result = TestSupport::translateFile(path);
        if (result.ok()) {
            EXPECT_NO_THROW(TestSupport::Scene(TestSupport::readAll(result.scene.get()))) << "round " << round;
            continue;
        }
        ++refused;
        EXPECT_NE(result.message.find(path), std::string::npos) << result.message;
        EXPECT_EQ(result.message.back(), '.') << result.message;
        EXPECT_NE(result.problem, Problem::notStarted) << result.message;
    }
    EXPECT_GT(refused, 10u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Mangled, testing::Values("glb", "fbx", "obj"),
                         [](const auto& info) { return std::string(info.param); });

}  // namespace
