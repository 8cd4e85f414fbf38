// Whatever was read from any bytes, up to an error or to the end, is saved as a scene that reads back without one, and
// saving that gives the same bytes. One thing is excepted: a deferred record is written as it was read, also when it
// refers to a plugin that stood behind the error.
#include <string>

#include "input.h"
#include "test_scene.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + size);
    const std::uint64_t blocks = Offline::counters.liveBlocks;
    {
        TestScene scene;
        const bool isWhole = scene.read(text).empty();
        const std::string first = scene.text();
        TestScene again;
        const std::string error = again.read(first);
        const bool mayMiss = !isWhole && scene.contents.deferred().waiting() > 0;
        const bool misses = mayMiss && error.find("there is no plugin \"") != std::string::npos;
        if (!error.empty() && !misses) std::fprintf(stderr, "%s\n%s\n", error.c_str(), first.c_str());
        REQUIRE(error.empty() || misses);
        const std::string second = again.text();
        if (second != first) std::fprintf(stderr, "first:\n%ssecond:\n%s", first.c_str(), second.c_str());
        REQUIRE(second == first);
        REQUIRE(again.contents.count() == scene.contents.count());
        REQUIRE(again.contents.deferred().waiting() == scene.contents.deferred().waiting());
    }
    REQUIRE(Offline::counters.liveBlocks == blocks);
    return 0;
}
