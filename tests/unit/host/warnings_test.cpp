#include "host/report/warnings.h"

#include "support/check.h"

TEST_CASE(warningsAreKeptInOrderUpToALimit) {
    Offline::Warnings warnings;
    warnings.echo = false;
    for (std::size_t i = 0; i < Offline::Warnings::KEPT + 5; ++i) warnings.add(std::to_string(i).c_str());
    CHECK_EQ(warnings.count(), static_cast<std::uint64_t>(Offline::Warnings::KEPT + 5));
    CHECK_EQ(warnings.texts().size(), Offline::Warnings::KEPT);
    CHECK_TEXT(warnings.texts().front().c_str(), "0");
    CHECK_TEXT(warnings.texts().back().c_str(), "9999");
    warnings.clear();
    CHECK_EQ(warnings.count(), std::uint64_t{0});
    CHECK(warnings.texts().empty());
    CHECK(!warnings.echo);
}
