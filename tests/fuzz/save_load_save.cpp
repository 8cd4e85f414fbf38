// Whatever was read from any bytes, up to an error or to the end, is saved as a scene that reads back without one, and
// saving that gives the same bytes.
#include <string>

#include "input.h"
#include "test_scene.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const std::uint64_t blocks = Offline::counters.liveBlocks;
    {
        TestScene scene;
        scene.read(text);
        const std::string first = scene.text();
        TestScene again;
        const std::string error = again.read(first);
        if (!error.empty()) std::fprintf(stderr, "%s\n%s\n", error.c_str(), first.c_str());
        REQUIRE(error.empty());
        const std::string second = again.text();
        if (second != first) std::fprintf(stderr, "first:\n%ssecond:\n%s", first.c_str(), second.c_str());
        REQUIRE(second == first);
        REQUIRE(again.contents.count() == scene.contents.count());
        REQUIRE(again.contents.deferred().waiting() == scene.contents.deferred().waiting());
    }
    REQUIRE(Offline::counters.liveBlocks == blocks);
    return 0;
}
