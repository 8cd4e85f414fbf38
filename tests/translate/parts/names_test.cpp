// Every record gets a name of its own, and the names of the file come first.
#include "translate/convert/output/names.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using namespace Translation;

struct Case {
    std::vector<std::string> wanted;
    std::vector<std::string> given;
};

TEST(Names, AreUniqueAndStayWhereTheyCan) {
    const Case cases[] = {
        {{"a", "b"}, {"a", "b"}},
        {{"a", "a", "a"}, {"a", "a_2", "a_3"}},
        {{"a", "a", "a_2"}, {"a", "a_3", "a_2"}},
        {{"a", "a_2", "a", "a_2"}, {"a", "a_2", "a_3", "a_2_2"}},
        {{"", ""}, {"", "_2"}},
        {{"é", "é"}, {"é", "é_2"}},
    };
    for (const Case& row : cases) {
        Report silent(-1);
        Names names(silent);
        for (const std::string& wanted : row.wanted) names.announce(wanted);
        std::vector<std::string> given;
        for (const std::string& wanted : row.wanted) given.push_back(names.take(wanted, "node"));
        EXPECT_EQ(given, row.given);
    }
}

TEST(Names, OfManyEqualRecordsAreFoundQuickly) {
    Report silent(-1);
    Names names(silent);
    names.announce("a");
    std::string last;
    for (int i = 0; i < 200000; ++i) last = names.take("a", "node");
    EXPECT_EQ(last, "a_200000");
}

}  // namespace
