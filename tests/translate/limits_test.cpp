// A translating process that dies, hangs, lies or wants too much is told of, and nothing is left of it.
#include <dirent.h>
#include <fcntl.h>
#include <sys/wait.h>

#include <chrono>

#include "helpers/translated.h"
#include "translate/supervise/sanitized.h"

namespace {

using Translation::Limits;
using Translation::Problem;
using Translation::TranslationResult;

// Generous where the wall clock is not what is tested: the machine may be busy.
constexpr unsigned LONG = 60;

struct Case {
    const char* deed;
    unsigned wallSeconds;
    Problem problem;
    const char* message;
};

Limits tight(unsigned wallSeconds) {
    Limits limits;
    limits.processorSeconds = 1;
    limits.wallSeconds = wallSeconds;
    limits.outputBytes = 1 << 20;
    return limits;
}

class Misbehaving : public testing::TestWithParam<Case> {};

TEST_P(Misbehaving, IsToldOf) {
    const Case& row = GetParam();
    const auto begin = std::chrono::steady_clock::now();
    const TranslationResult result =
        Translation::translate(row.deed, "", tight(row.wallSeconds), MISBEHAVING_TRANSLATOR);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    EXPECT_STREQ(Translation::problemName(result.problem), Translation::problemName(row.problem));
    EXPECT_EQ(result.message, row.message);
    EXPECT_FALSE(result.scene);
    EXPECT_LT(took.count(), row.wallSeconds + 5);
    // No process is left behind, dead or alive.
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
}

const Case CASES[] = {
    {"hang", 1, Problem::limit, "The translation of \"hang\" was stopped: it took longer than 1 seconds."},
    {"hang-silently", 1, Problem::limit,
     "The translation of \"hang-silently\" was stopped: it took longer than 1 seconds."},
    {"spin", LONG, Problem::limit,
     "The translation of \"spin\" was stopped: it needed more than 1 seconds of processor time."},
    {"write-much", LONG, Problem::limit,
     "The translation of \"write-much\" was stopped: it wrote more than 1048576 bytes."},
    {"segfault", LONG, Problem::died, "The translation of \"segfault\" died: Segmentation fault (signal 11)."},
    {"abort", LONG, Problem::died, "The translation of \"abort\" died: Aborted (signal 6)."},
    {"killed", LONG, Problem::died, "The translation of \"killed\" died: Killed (signal 9)."},
    {"silent", LONG, Problem::died, "The translation of \"silent\" died: it ended with code 0 and without a result."},
    {"garbage", LONG, Problem::died, "The translation of \"garbage\" died: it ended with code 0 and without a result."},
    {"done-but-failed", LONG, Problem::died,
     "The translation of \"done-but-failed\" died: it ended with code 5 and without a result."},
    {"error-but-zero", LONG, Problem::died,
     "The translation of \"error-but-zero\" died: it ended with code 0 and without a result."},
    {"half-done", LONG, Problem::died,
     "The translation of \"half-done\" died: it ended with code 1 and without a result."},
};

INSTANTIATE_TEST_SUITE_P(Deeds, Misbehaving, testing::ValuesIn(CASES), [](const auto& info) {
    std::string name = info.param.deed;
    for (char& byte : name) byte = byte == '-' ? '_' : byte;
    return name;
});

int openDescriptors() {
    int count = 0;
    DIR* folder = opendir("/proc/self/fd");
    while (readdir(folder) != nullptr) ++count;
    closedir(folder);
    return count;
}

TEST(Descriptors, OfTheCallerStayWithTheCaller) {
    const int kept = open("/dev/null", O_RDONLY);  // without close-on-exec
    const int before = openDescriptors();
    {
        const TranslationResult result = Translation::translate("descriptors", "", tight(LONG), MISBEHAVING_TRANSLATOR);
        EXPECT_TRUE(result.ok()) << result.message;
    }
    EXPECT_EQ(openDescriptors(), before);
    close(kept);
}

TEST(Program, ThatIsNotThere) {
    const TranslationResult result = Translation::translate("a.glb", "", tight(LONG), "/nowhere/kelmo-translate");
    EXPECT_EQ(result.problem, Problem::notStarted);
    EXPECT_EQ(result.message,
              "\"a.glb\" was not translated: the program \"/nowhere/kelmo-translate\" could not be started.");
}

TEST(Memory, IsLimited) {
    const TestSupport::TemporaryFolder folder;
    const std::string scene = folder.path("large.obj");
    std::string text;
    for (int i = 0; i < 200000; ++i) text += "v " + std::to_string(i) + " 0 0\n";
    for (int i = 1; i < 200000 - 2; ++i) {
        text += "f " + std::to_string(i) + " " + std::to_string(i + 1) + " " + std::to_string(i + 2) + "\n";
    }
    TestSupport::writeFile(scene, text);
    Limits limits;
    limits.memoryBytes = 64 << 20;
    const TranslationResult result = TestSupport::translateFile(scene, "", limits);
    if (Translation::SANITIZED) {
        // AddressSanitizer reserves more address space than any limit allows, so that there is none under it.
        EXPECT_TRUE(result.ok()) << result.message;
        return;
    }
    EXPECT_EQ(result.problem, Problem::limit);
    EXPECT_EQ(result.message,
              "The translation of \"" + scene + "\" was stopped: it needed more memory than it may have.");
    EXPECT_TRUE(TestSupport::translateFile(scene).ok());
}

TEST(DeferKinds, AreChecked) {
    std::string unknown;
    EXPECT_TRUE(Translation::deferKindsKnown("", unknown));
    EXPECT_TRUE(Translation::deferKindsKnown("materials,textures,cameras,nodes", unknown));
    EXPECT_FALSE(Translation::deferKindsKnown("materials,lights", unknown));
    EXPECT_EQ(unknown, "lights");
    EXPECT_FALSE(Translation::deferKindsKnown("materials,,nodes", unknown));
    EXPECT_EQ(unknown, "");
}

TEST(Names, OfScenesThatCanBeTranslated) {
    for (const char* name : {"a.glb", "b/a.GLTF", "x.y.Fbx", "a.obj"})
        EXPECT_TRUE(Translation::looksTranslatable(name));
    for (const char* name : {"", ".glb", "glb", "a.kscene", "a.obj.txt", "a.glb/"}) {
        EXPECT_FALSE(Translation::looksTranslatable(name)) << name;
    }
}

}  // namespace
