// A scene of a million plugins: read, searched and saved in bounded memory. Prints seconds and bytes a plugin.
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "check.h"
#include "test_scene.h"

namespace {

constexpr int PLUGINS = 1000000;
constexpr double MOST_BYTES_A_PLUGIN = 400.0;

double secondsSince(std::clock_t start) { return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC; }

// Gives the lines of the scene without holding them all: half are nodes with a reference to a later material.
const char* lineOf(int index, char* text, std::size_t bytes) {
    if (index % 2 == 0) {
        std::snprintf(text, bytes,
                      "{\"type\":\"Node\",\"name\":\"node %07d\",\"params\":{\"material\":\"material %07d\"}}\n", index,
                      index + 1);
    } else {
        std::snprintf(text, bytes, "{\"type\":\"Material\",\"name\":\"material %07d\"}\n", index);
    }
    return text;
}

struct Compare {
    int index;
    int different;
};

}  // namespace

TEST_CASE(scale) {
    const char* path = "scene_scale_test.kscene";
    char line[160];
    std::FILE* file = std::fopen(path, "wb");
    CHECK(file != nullptr);
    if (file == nullptr) return;
    std::fputs("{\"kelmo-scene\":1}\n", file);
    for (int i = 0; i < PLUGINS; ++i) std::fputs(lineOf(i, line, sizeof line), file);
    CHECK_EQ(std::fclose(file), 0);

    TestScene scene;
    const std::uint64_t bytesBefore = Offline::counters.liveBytes;
    auto start = std::clock();
    CHECK_TEXT(takeError(Offline::readScene(scene.contents, path, nullptr)).c_str(), "");
    std::printf("read      %.3f s\n", secondsSince(start));
    std::remove(path);
    CHECK_EQ(scene.contents.count(), static_cast<std::size_t>(PLUGINS));
    const double bytes = static_cast<double>(Offline::counters.liveBytes - bytesBefore) / PLUGINS;
    std::printf("          %.1f bytes a plugin in the core's heap\n", bytes);
    CHECK(bytes < MOST_BYTES_A_PLUGIN);

    start = std::clock();
    int found = 0;
    for (int i = 0; i < PLUGINS; i += 2) {
        std::snprintf(line, sizeof line, "node %07d", i);
        Offline::OfflinePlugin* plugin = scene.find(line);
        if (plugin == nullptr) continue;
        const KUtils::PluginBase* material = plugin->find("material")->getPlugin(0, 0.0, nullptr);
        std::snprintf(line, sizeof line, "material %07d", i + 1);
        if (material != nullptr && material == scene.find(line)) ++found;
    }
    std::printf("searched  %.3f s\n", secondsSince(start));
    CHECK_EQ(found, PLUGINS / 2);

    start = std::clock();
    Compare compare{-1, 0};
    Offline::saveSceneText(
        scene.contents,
        [](void* user, const char* text, std::size_t length) {
            auto& at = *static_cast<Compare*>(user);
            char expected[160];
            if (at.index >= 0 && std::string(text, length) != lineOf(at.index, expected, sizeof expected))
                ++at.different;
            ++at.index;
        },
        &compare);
    std::printf("saved     %.3f s\n", secondsSince(start));
    CHECK_EQ(compare.index, PLUGINS);
    CHECK_EQ(compare.different, 0);
}
