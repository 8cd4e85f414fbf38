// The command line of the translating program.
#include "translate/child/options.h"

#include <gtest/gtest.h>

#include <vector>

#include "translate/defer_kinds.h"

namespace {

using namespace Translation;

bool parse(std::vector<const char*> arguments, Options& options, std::string& problem) {
    arguments.insert(arguments.begin(), "kelmo-translate");
    return parseOptions(static_cast<int>(arguments.size()), arguments.data(), options, problem);
}

TEST(Options, AreRead) {
    Options options;
    std::string problem;
    ASSERT_TRUE(parse(
        {"--defer", "materials,nodes", "a.glb", "--output-fd", "7", "--report-fd", "8", "--max-input", "12345678901"},
        options, problem))
        << problem;
    EXPECT_EQ(options.scene, "a.glb");
    EXPECT_EQ(options.output, 7);
    EXPECT_EQ(options.report, 8);
    EXPECT_EQ(options.maxInputBytes, 12345678901u);
    EXPECT_EQ(options.deferKinds, unsigned(DEFER_MATERIALS | DEFER_NODES));

    Options dashed;
    ASSERT_TRUE(parse({"--output-fd", "1", "--", "--help"}, dashed, problem));
    EXPECT_EQ(dashed.scene, "--help");
    EXPECT_FALSE(dashed.help);

    Options help;
    ASSERT_TRUE(parse({"--help"}, help, problem));
    EXPECT_TRUE(help.help);
}

TEST(Options, ThatAreWrongAreNamed) {
    const struct {
        std::vector<const char*> arguments;
        const char* problem;
    } cases[] = {
        {{}, "There is no scene to translate."},
        {{"a.glb"}, "--output-fd is missing."},
        {{"a.glb", "b.glb", "--output-fd", "1"}, "There is more than one scene: \"a.glb\" and \"b.glb\"."},
        {{"a.glb", "--output-fd"}, "--output-fd needs a value."},
        {{"a.glb", "--output-fd", "x"}, "--output-fd takes the number of an open descriptor, not \"x\"."},
        {{"a.glb", "--output-fd", "-1"}, "--output-fd takes the number of an open descriptor, not \"-1\"."},
        {{"a.glb", "--output-fd", "2147483648"},
         "--output-fd takes the number of an open descriptor, not \"2147483648\"."},
        {{"a.glb", "--report-fd", "1z"}, "--report-fd takes the number of an open descriptor, not \"1z\"."},
        {{"a.glb", "--max-input", "1e9"}, "--max-input takes a number of bytes, not \"1e9\"."},
        {{"a.glb", "--output-fd", "1", "--defer", "lights"},
         "--defer takes materials, textures, cameras and nodes, not \"lights\"."},
        {{"a.glb", "--output", "1"}, "There is no option --output."},
    };
    for (const auto& row : cases) {
        Options options;
        std::string problem;
        EXPECT_FALSE(parse(row.arguments, options, problem));
        EXPECT_EQ(problem, row.problem);
    }
}

}  // namespace
