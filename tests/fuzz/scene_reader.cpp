// Reads any bytes as a scene. Whatever they are: an error says where it lies, what was read can be walked, shown, taken
// out and made from its deferred records, and nothing is left in the core's heap.
#include <string>
#include <vector>

#include "input.h"
#include "test_scene.h"

namespace {

constexpr int SHOWN_ELEMENTS = 4;

struct ShowValues final : KUtils::EnumParamsCallback {
    int process(KUtils::KelmoPluginParameter* value) override {
        REQUIRE(value != nullptr && value->getName() != nullptr);
        std::string text;
        Offline::describeValue(
            value, SHOWN_ELEMENTS,
            [](void* user, const char* piece, std::size_t length) {
                static_cast<std::string*>(user)->append(piece, length);
            },
            &text);
        REQUIRE(!text.empty());
        return 1;
    }
};

void walk(Offline::SceneContents& contents) {
    ShowValues show;
    std::size_t plugins = 0;
    for (Offline::OfflinePlugin* plugin = contents.first(); plugin != nullptr; plugin = contents.next(plugin)) {
        ++plugins;
        REQUIRE(contents.find(KUtils::pluginName(plugin)) == plugin);
        Offline::enumValues(plugin, &show);
    }
    REQUIRE(plugins == contents.count());
}

void makeDeferred(Offline::SceneContents& contents) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < contents.deferred().size(); ++i) {
        const Offline::DeferredRecord& record = contents.deferred().at(i);
        if (!record.taken) names.emplace_back(record.name);
    }
    for (const std::string& name : names) Offline::materialise(contents, name.c_str(), nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const std::uint64_t blocks = Offline::counters.liveBlocks;
    {
        TestScene main;
        REQUIRE(main.readLines("{\"type\":\"Material\",\"name\":\"main\"}\n").empty());
        TestScene scene(main);
        const std::string error = scene.read(text);
        REQUIRE(error.empty() || error.compare(0, 4, "[s] ") == 0);
        walk(scene.contents);
        makeDeferred(scene.contents);
        walk(scene.contents);
        Offline::OfflinePlugin* plugin = scene.contents.first();
        for (bool take = true; plugin != nullptr; take = !take) {
            Offline::OfflinePlugin* next = scene.contents.next(plugin);
            if (take) REQUIRE(scene.contents.remove(plugin));
            plugin = next;
        }
        walk(scene.contents);
    }
    REQUIRE(Offline::counters.liveBlocks == blocks);
    REQUIRE(Offline::counters.wrongSizes == 0 && Offline::counters.foreignFrees == 0);
    return 0;
}
