#include "core/plugin/value_fits.h"

#include <cstdio>
#include <cstring>

#include "support/check.h"
#include "test_value.h"

using namespace KUtils;

namespace {

KUtils::ParamDesc declared(ParamType type, bool list) {
    ParamDesc desc{};
    desc.type = type;
    desc.listCount = list ? 0 : -1;
    return desc;
}

constexpr ParamType CODES[] = {PARAM_INT,
                               PARAM_FLOAT,
                               PARAM_DOUBLE,
                               PARAM_BOOL,
                               PARAM_VECTOR,
                               PARAM_COLOR,
                               PARAM_ACOLOR,
                               PARAM_MATRIX,
                               PARAM_TRANSFORM,
                               PARAM_STRING,
                               PARAM_PLUGIN,
                               PARAM_TEXTURE,
                               PARAM_LIST,
                               PARAM_TEXTURE_FLOAT,
                               PARAM_TEXTURE_INT,
                               PARAM_TEXTURE_VECTOR,
                               PARAM_TEXTURE_MATRIX,
                               PARAM_TEXTURE_TRANSFORM,
                               PARAM_OUTPUT_TEXTURE,
                               PARAM_UNKNOWN,
                               static_cast<ParamType>(-1),
                               static_cast<ParamType>(32)};

}  // namespace

// One column for each of the codes above, in their order: x fits.
TEST_CASE(whichValuesADeclarationTakes) {
    struct Row {
        const char* label;
        ParamType type;
        const char* single;
        const char* element;
    };
    const Row rows[] = {
        {"int", PARAM_INT, "xxxx..................", "xxxx.................."},
        {"float", PARAM_FLOAT, "xxxx..................", "xxxx.................."},
        {"double", PARAM_DOUBLE, "xxxx..................", "xxxx.................."},
        {"bool", PARAM_BOOL, "xxxx..................", "xxxx.................."},
        {"vector", PARAM_VECTOR, "....x.................", "....x................."},
        {"color", PARAM_COLOR, ".....xx...............", ".....xx..............."},
        {"acolor", PARAM_ACOLOR, ".....xx...............", ".....xx..............."},
        {"matrix", PARAM_MATRIX, ".......xx.............", ".......xx............."},
        {"transform", PARAM_TRANSFORM, ".......xx.............", ".......xx............."},
        {"string", PARAM_STRING, ".........x............", ".........x............"},
        {"plugin", PARAM_PLUGIN, "..........x...........", "..........x..........."},
        {"texture", PARAM_TEXTURE, ".....xx...xx..........", "..........xx.........."},
        {"texture_float", PARAM_TEXTURE_FLOAT, "xxxx......x..x........", "..........x..x........"},
        {"texture_int", PARAM_TEXTURE_INT, "xxxx......x...x.......", "..........x...x......."},
        {"texture_vector", PARAM_TEXTURE_VECTOR, "....x.....x....x......", "..........x....x......"},
        {"texture_matrix", PARAM_TEXTURE_MATRIX, ".......xx.x.....x.....", "..........x.....x....."},
        {"texture_transform", PARAM_TEXTURE_TRANSFORM, ".......xx.x......x....", "..........x......x...."},
        {"list", PARAM_LIST, "......................", "............x........."},
        {"output", PARAM_OUTPUT_TEXTURE, "......................", "......................"},
        {"output transform", PARAM_OUTPUT_TEXTURE_TRANSFORM, "......................", "......................"},
        {"unknown", PARAM_UNKNOWN, "......................", "......................"},
    };
    for (const Row& row : rows) {
        for (int i = 0; i < 22; ++i) {
            char label[64];
            std::snprintf(label, sizeof label, "%s takes %d", row.label, static_cast<int>(CODES[i]));
            CHECK_ROW(label);
            TestValue single("v", CODES[i]);
            TestValue list("v", CODES[i], 3);
            TestValue empty("v", CODES[i], 0);
            // The code 12 is a list whether or not the declaration says so.
            const bool asSingle = row.type != PARAM_LIST;
            CHECK_EQ(Offline::valueFits(declared(row.type, false), single), asSingle && row.single[i] == 'x');
            CHECK_EQ(Offline::valueFits(declared(row.type, true), list), row.element[i] == 'x');
            CHECK_EQ(Offline::valueFits(declared(row.type, true), empty), row.element[i] == 'x');
            CHECK(!Offline::valueFits(declared(row.type, true), single));
            if (asSingle) CHECK(!Offline::valueFits(declared(row.type, false), list));
            CHECK_ROW(nullptr);
        }
    }
}
