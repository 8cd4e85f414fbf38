#include <string>

#include "core/core_api.h"
#include "support/check.h"

using namespace Offline;

TEST_CASE(shaderTextIsCollected) {
    KUtils::ShaderSource* source = makeShaderSource();
    CHECK_TEXT(shaderText(source), "");
    source->printf("color %f %f %f %f\n", 0.5, 1.0, 0.0, 1.0);
    source->printf("%s", "");
    source->printf("end %d", 7);
    CHECK_TEXT(shaderText(source), "color 0.500000 1.000000 0.000000 1.000000\nend 7");
    const std::string text(5000, 'x');
    source->printf("%s", text.c_str());
    CHECK_EQ(std::string(shaderText(source)).size(), std::size_t{42 + 5 + 5000});
    freeShaderSource(source);
}
