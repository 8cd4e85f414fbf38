#include "host/report/value_digest.h"

#include <cmath>
#include <limits>

#include "stub_values.h"
#include "support/check.h"

namespace {

std::uint64_t digest(KUtils::KelmoPluginParameter&& value) { return Offline::valueDigest(value); }

}  // namespace

TEST_CASE(equalValuesHaveEqualDigests) {
    CHECK_EQ(digest(stub::Int("a", 5)), digest(stub::Int("b", 5)));
    CHECK_EQ(digest(stub::IntList("a", {1, 2, 3})), digest(stub::IntList("a", {1, 2, 3})));
    CHECK_EQ(digest(stub::String("a", "text")), digest(stub::String("a", std::string("text").c_str())));
    const float nan = std::numeric_limits<float>::quiet_NaN();
    CHECK_EQ(digest(stub::Float("a", nan)), digest(stub::Float("a", nan)));
}

TEST_CASE(differentValuesHaveDifferentDigests) {
    KUtils::PluginBase first;
    KUtils::PluginBase second;
    std::vector<std::int32_t> many(1000, 7);
    std::vector<std::int32_t> lastDiffers = many;
    lastDiffers.back() = 8;
    const struct {
        const char* label;
        std::uint64_t one, other;
    } rows[] = {
        {"number", digest(stub::Int("a", 5)), digest(stub::Int("a", 6))},
        {"type", digest(stub::Int("a", 0)), digest(stub::Float("a", 0.0f))},
        {"sign of zero", digest(stub::Float("a", 0.0f)), digest(stub::Float("a", -0.0f))},
        {"text", digest(stub::String("a", "text")), digest(stub::String("a", "texu"))},
        {"no text", digest(stub::String("a", nullptr)), digest(stub::String("a", ""))},
        {"plugin", digest(stub::Reference("a", &first, nullptr)), digest(stub::Reference("a", &second, nullptr))},
        {"no plugin", digest(stub::Reference("a", &first, nullptr)), digest(stub::Reference("a", nullptr, nullptr))},
        {"output", digest(stub::Reference("a", &first, nullptr)), digest(stub::Reference("a", &first, "out"))},
        {"single and list", digest(stub::Int("a", 5)), digest(stub::IntList("a", {5}))},
        {"length", digest(stub::IntList("a", {0})), digest(stub::IntList("a", {0, 0}))},
        {"empty", digest(stub::IntList("a", {})), digest(stub::IntList("a", {0}))},
        {"order", digest(stub::IntList("a", {1, 2})), digest(stub::IntList("a", {2, 1}))},
        {"last of many", digest(stub::IntList("a", many)), digest(stub::IntList("a", lastDiffers))},
    };
    for (const auto& row : rows) {
        CHECK_ROW(row.label);
        CHECK(row.one != row.other);
    }
}

TEST_CASE(theWalkEndsOnAnEndlessValue) {
    stub::Endless endless("a");
    CHECK_EQ(Offline::valueDigest(endless), Offline::valueDigest(endless));
}
