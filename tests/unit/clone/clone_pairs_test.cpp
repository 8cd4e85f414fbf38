// Which object a value becomes: every pair of source type and requested code, the checks of texture
// parameters, and the classes of lists.
#include <cstdio>
#include <memory>
#include <vector>

#include "check.h"
#include "param/clone/clone_param_value.h"
#include "pointer_set/set_memory.h"
#include "stub_plugin.h"
#include "tree_source.h"

using namespace KUtils;

namespace {

constexpr int CODES[] = {-1, 0,  1,  2,  3,   4,    5,    6,    7,    8,    9,    10,   11,   12,    13,   14,
                         15, 16, 17, 18, 999, 1000, 1001, 1002, 1003, 1004, 1005, 1006, 9999, 10000, 10001};

struct PairRow {
    int source;
    int code;
    int built;  // the type of the object
};

// Everything that does not stand here is refused. References and outputs: with a plugin that offers all.
constexpr PairRow PAIRS[] = {
    {0, 0, 0},      {0, 14, 0},     {0, 3, 0},    {0, 1, 1},    {0, 13, 1},   {0, 2, 2},    {1, 0, 0},    {1, 14, 0},
    {1, 3, 0},      {1, 1, 1},      {1, 13, 1},   {1, 2, 2},    {2, 0, 0},    {2, 14, 0},   {2, 3, 0},    {2, 1, 1},
    {2, 13, 1},     {2, 2, 2},      {3, 0, 0},    {3, 14, 0},   {3, 3, 0},    {3, 1, 1},    {3, 13, 1},   {3, 2, 2},
    {4, 4, 4},      {4, 15, 4},     {5, 5, 5},    {5, 11, 5},   {5, 6, 6},    {6, 6, 6},    {6, 11, 6},   {6, 5, 5},
    {7, 7, 7},      {7, 16, 7},     {7, 8, 8},    {7, 17, 8},   {8, 7, 7},    {8, 16, 7},   {8, 8, 8},    {8, 17, 8},
    {9, 9, 9},      {10, 10, 10},   {10, 11, 10}, {10, 13, 10}, {10, 14, 10}, {10, 15, 10}, {10, 16, 10}, {10, 17, 10},
    {1000, 10, 10}, {1000, 11, 10},
};

const PairRow* findPair(int source, int code) {
    for (const PairRow& row : PAIRS) {
        if (row.source == source && row.code == code) return &row;
    }
    return nullptr;
}

const std::uint32_t TEXTURE_INTERFACES[] = {2004353026, 2005072101, 2005072106, 2005072102, 2005072103, 2005072105};
constexpr int TEXTURE_CODES[] = {11, 13, 14, 15, 16, 17};

// A plugin that offers every texture interface and declares a colour output.
struct Everything : StubPlugin {
    Everything() : StubPlugin("Everything") {
        for (std::uint32_t identifier : TEXTURE_INTERFACES) interfaces.push_back(identifier);
        type.declare("out", 1000);
    }
};

}  // namespace

TEST_CASE(everyPairOfSourceTypeAndCode) {
    Everything everything;
    char label[64];
    int built = 0;
    for (int sourceType : CODES) {
        for (int code : CODES) {
            if (code == 12) continue;  // a list whatever the flag says
            std::snprintf(label, sizeof label, "source %d, code %d", sourceType, code);
            CHECK_ROW(label);
            TreeSource source(Node{sourceType, 3, "out", &everything, false, {}}, "value");
            const OwnedValue value = cloneParamValue(&everything, source, code, false);
            const PairRow* row = findPair(sourceType, code);
            CHECK_EQ(value != nullptr, row != nullptr);
            if (value == nullptr || row == nullptr) continue;
            ++built;
            CHECK_EQ(static_cast<int>(value->getType(0, 0.0)), row->built);
            CHECK_TEXT(value->getName(), "value");
            CHECK_EQ(value->getCount(0.0), -1);
        }
    }
    CHECK_EQ(built, static_cast<int>(sizeof PAIRS / sizeof *PAIRS));
}

TEST_CASE(singleValuesHoldWhatTheSettersMakeOfTheSource) {
    struct Row {
        const char* label;
        int source;
        double number;
        int code;
        double expected;  // getDouble, or the first component
        double last;      // alpha, or the last offset
    };
    const Row rows[] = {
        {"int to float", 0, 7, 1, 7, 0},
        {"int to double", 0, 7, 2, 7, 0},
        {"float to int", 1, 2.7, 0, 2, 0},
        {"negative float to int", 1, -2.7, 0, -2, 0},
        {"float to bool truncates", 1, 0.5, 3, 0, 0},
        {"int to bool keeps the number", 0, 5, 3, 5, 0},
        {"bool to float", 3, 1, 13, 1, 0},
        {"double to float narrows", 2, 0.1, 1, static_cast<double>(0.1f), 0},
        {"double to double", 2, 0.1, 2, 0.1, 0},
        {"vector", 4, 3, 15, 3, 5},
        {"colour to acolour has alpha one", 5, 3, 6, 3, 1},
        {"acolour to colour drops alpha", 6, 3, 5, 3, 5},
        {"acolour to texture", 6, 3, 11, 3, 0.25},
        {"matrix to transform has no offset", 7, 3, 8, 3, 0},
        {"transform to matrix", 8, 3, 16, 3, 4},
        {"transform offset is narrowed", 8, 0.1, 17, static_cast<double>(0.1f), static_cast<double>(0.1f)},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        TreeSource source(number(row.source, row.number));
        const OwnedValue value = cloneParamValue(nullptr, source, row.code, false);
        CHECK(value != nullptr);
        if (value == nullptr) continue;
        double first = value->getDouble(0, 0.0);
        double last = 0;
        switch (value->getType(0, 0.0)) {
            case PARAM_VECTOR:
                first = value->getVector(0, 0.0).x;
                last = value->getVector(0, 0.0).z;
                break;
            case PARAM_COLOR:
                first = value->getColor(0, 0.0).r;
                last = value->getColor(0, 0.0).b;
                break;
            case PARAM_ACOLOR:
                first = value->getAColor(0, 0.0).color.r;
                last = value->getAColor(0, 0.0).alpha;
                break;
            case PARAM_MATRIX:
                first = value->getMatrix(0, 0.0).columns[0].x;
                last = value->getMatrix(0, 0.0).columns[2].z;
                break;
            case PARAM_TRANSFORM:
                first = value->getTransform(0, 0.0).matrix.columns[0].x;
                last = value->getTransform(0, 0.0).offset[2];
                break;
            default:
                break;
        }
        CHECK_EQ(first, row.expected);
        CHECK_EQ(last, row.last);
    }
}

TEST_CASE(aPluginFeedsTheTexturesWhoseInterfaceItOffers) {
    for (std::size_t offered = 0; offered < 6; ++offered) {
        for (std::size_t wanted = 0; wanted < 6; ++wanted) {
            StubPlugin plugin;
            plugin.interfaces.push_back(TEXTURE_INTERFACES[offered]);
            TreeSource source(reference(PARAM_PLUGIN, &plugin));
            source.askedForOutput = true;
            const OwnedValue value = makeScalarValue(source, TEXTURE_CODES[wanted]);
            CHECK_EQ(value != nullptr, offered == wanted);
            CHECK(!source.askedForOutput);
        }
    }
    StubPlugin bare;
    TreeSource source(reference(PARAM_PLUGIN, &bare));
    CHECK(makeScalarValue(source, PARAM_PLUGIN) != nullptr);
    TreeSource missing(reference(PARAM_PLUGIN, nullptr));
    CHECK(makeScalarValue(missing, PARAM_PLUGIN) != nullptr);
    for (int code : TEXTURE_CODES) CHECK(makeScalarValue(missing, code) == nullptr);
}

TEST_CASE(anOutputFeedsTheTexturesOfItsDeclaredType) {
    constexpr int DECLARED[] = {1000, 1001, 1002, 1003, 1004, 1005, 10000, 11, 0};
    for (int declared : DECLARED) {
        for (std::size_t wanted = 0; wanted < 6; ++wanted) {
            StubPlugin plugin;
            plugin.type.declare("other", TEXTURE_CODES[wanted]);
            plugin.type.declare("out", declared);
            plugin.type.declare("out", 1000 + static_cast<int>(wanted));  // the first of the name decides
            TreeSource source(reference(1000, &plugin, "out"));
            const OwnedValue value = makeScalarValue(source, TEXTURE_CODES[wanted]);
            CHECK_EQ(value != nullptr, declared == 1000 + static_cast<int>(wanted));
        }
    }
}

TEST_CASE(outputsThatCannotBeChecked) {
    struct Row {
        const char* label;
        const char* output;
        bool describes;
        bool declares;
        bool hasPlugin;
    };
    const Row rows[] = {
        {"not declared", "Out", true, true, true},   {"no output name", nullptr, true, true, true},
        {"no descriptor", "out", false, true, true}, {"an empty table", "out", true, false, true},
        {"no plugin", "out", true, true, false},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        StubPlugin plugin;
        plugin.describes = row.describes;
        if (row.declares) plugin.type.declare("out", 1000);
        TreeSource source(reference(1000, row.hasPlugin ? &plugin : nullptr, row.output));
        CHECK(makeScalarValue(source, PARAM_TEXTURE) == nullptr);
        // A plugin parameter takes any output unchecked.
        CHECK(makeScalarValue(source, PARAM_PLUGIN) != nullptr);
    }
}

TEST_CASE(outputsOfAPluginThatSaysLittle) {
    StubPlugin plugin;
    TreeSource source(reference(1000, &plugin, "out"));
    plugin.hasDescriptor = false;
    CHECK(makeScalarValue(source, PARAM_TEXTURE) == nullptr);
    plugin.hasDescriptor = true;
    // A declaration without a name is nobody's output.
    plugin.type.declare(nullptr, 1000);
    CHECK(makeScalarValue(source, PARAM_TEXTURE) == nullptr);
    plugin.type.declare("out", 1000);
    CHECK(makeScalarValue(source, PARAM_TEXTURE) != nullptr);
}

TEST_CASE(noPairIsMadeWithoutMemory) {
    StubPlugin plugin;
    plugin.interfaces.push_back(EXT_TEXTURE);
    SetMemory& memory = setMemory();
    for (int type = 0; type <= 10; ++type) {
        for (int code : CODES) {
            TreeSource source(type == 10 ? reference(10, &plugin) : type == 9 ? string("text") : number(type, 1));
            memory.failFrom = memory.requests + 1;
            const OwnedValue refused = makeScalarValue(source, code);
            memory.failFrom = 0;
            CHECK(refused == nullptr);
        }
    }
}

namespace {

// What a list object is, told from how it behaves.
const char* listKind(KelmoPluginParameter& list) {
    KelmoSettableParamInterface* settable = settableOf(list);
    settable->setCount(1);
    const int whole = list.getType(-1, 0.0);
    const ListHandle opened = list.openListImpl(0);
    const int inner = list.getType(0, 0.0);
    const int count = list.getCount(0.0);
    list.closeList(opened);
    if (whole != PARAM_LIST) {
        static char flat[16];
        std::snprintf(flat, sizeof flat, "flat %d", whole);
        return flat;
    }
    if (inner == PARAM_UNKNOWN) return "generic";
    if (count == 3) return "map channels";
    static char nested[16];
    std::snprintf(nested, sizeof nested, "lists of %d", inner);
    return nested;
}

}  // namespace

TEST_CASE(aNamelessOutputIsNone) {
    StubPlugin plugin("Stub");
    plugin.type.declare("", 1000);
    TreeSource none(reference(1000, &plugin, nullptr));
    CHECK(!outputFeedsTexture(none, 11));
    TreeSource nameless(reference(1000, &plugin, ""));
    CHECK(outputFeedsTexture(nameless, 11));
}

// What an object holds before the copy, and that its name is its own.
TEST_CASE(newObjects) {
    char name[] = "value";
    TreeSource color(number(5, 3), name);
    const OwnedValue withAlpha = makeScalarValue(color, 6);
    CHECK_EQ(withAlpha->getAColor(0, 0.0).alpha, 1.0f);
    TreeSource text(string("text"), name);
    const OwnedValue empty = makeScalarValue(text, 9);
    CHECK_TEXT(empty->getString(0, 0.0), "");
    Everything everything;
    TreeSource plugin(reference(10, &everything, "out"), name);
    const OwnedValue nothing = makeScalarValue(plugin, 10);
    const char* output = name;
    CHECK(nothing->getPlugin(0, 0.0, &output) == nullptr);
    CHECK(output == nullptr);
    std::vector<OwnedValue> lists;
    for (int code : {0, 1, 2, 4, 5, 6, 7, 8, 9, 10, 11, 12}) lists.push_back(makeListValue(&everything, name, code));
    char special[] = "frames";
    StubPlugin settings("SettingsOutput");
    const OwnedValue frames = makeListValue(&settings, special, 12);
    name[0] = special[0] = 'x';
    CHECK_TEXT(withAlpha->getName(), "value");
    CHECK_TEXT(empty->getName(), "value");
    CHECK_TEXT(nothing->getName(), "value");
    CHECK_TEXT(frames->getName(), "frames");
    for (const OwnedValue& list : lists) {
        CHECK_TEXT(list->getName(), "value");
        CHECK_EQ(list->getCount(0.0), list->getType(0, 0.0) == PARAM_UNKNOWN ? -1 : 0);
    }
}

TEST_CASE(everyListClass) {
    StubPlugin plugin("Any");
    for (int code : CODES) {
        char label[32];
        std::snprintf(label, sizeof label, "code %d", code);
        CHECK_ROW(label);
        char expected[16];
        const bool reference = code == 10 || code == 11 || (code >= 13 && code <= 17);
        std::snprintf(expected, sizeof expected, "flat %d", reference ? 10 : code);
        const bool flat = reference || (code >= 0 && code <= 9 && code != 3);
        const OwnedValue list = makeListValue(&plugin, "p", code);
        CHECK_EQ(list != nullptr, flat || code == 12);
        if (list == nullptr) continue;
        CHECK_EQ(list->getCount(0.0), code == 12 ? -1 : 0);
        CHECK_TEXT(listKind(*list), code == 12 ? "generic" : expected);
        CHECK_TEXT(list->getName(), "p");
    }
}

TEST_CASE(specialListsOfLists) {
    struct Row {
        const char* param;
        const char* type;
        const char* kind;
    };
    const Row rows[] = {
        {"map_channels", "GeomStaticMesh", "map channels"},
        {"ignored_lights", "SettingsLightLinker", "lists of 10"},
        {"ignored_shadow_lights", "SettingsLightLinker", "lists of 10"},
        {"frames", "SettingsOutput", "lists of 0"},
        {"weights", "GeomStaticNURBS", "lists of 1"},
        {"cvs", "GeomStaticNURBS", "lists of 4"},
        {"map_channels", "GeomStaticNURBS", "generic"},
        {"map_channels", "geomstaticmesh", "generic"},
        {"Map_channels", "GeomStaticMesh", "generic"},
        {"map_channels ", "GeomStaticMesh", "generic"},
        {"map_channel", "GeomStaticMesh", "generic"},
        {"ignored_lights", "SettingsOutput", "generic"},
        {"frames", "SettingsLightLinker", "generic"},
        {"cvs", "GeomStaticMesh", "generic"},
        {"weights", "GeomStaticNURBS2", "generic"},
        {"Frames", "SettingsOutput", "generic"},
        {"cvs", nullptr, "generic"},
        {nullptr, "GeomStaticNURBS", "generic"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.param);
        StubPlugin plugin(row.type);
        const OwnedValue list = makeListValue(&plugin, row.param, PARAM_LIST);
        CHECK(list != nullptr);
        if (list == nullptr) continue;
        CHECK_TEXT(listKind(*list), row.kind);
        CHECK_TEXT(list->getName(), row.param);
    }
    StubPlugin unasked("GeomStaticMesh");
    makeListValue(&unasked, "no special name", PARAM_LIST);
    CHECK_EQ(unasked.type.asked, 0);
}

TEST_CASE(listFlagAndListCode) {
    struct Row {
        const char* label;
        bool sourceIsList;
        int code;
        bool isList;
        bool made;
    };
    const Row rows[] = {
        {"a list for a list", true, 0, true, true},
        {"a scalar for a list", false, 0, true, false},
        {"a scalar for a list of lists", false, 12, true, false},
        {"a scalar for code 12 without the flag", false, 12, false, false},
        {"a list for code 12 without the flag", true, 12, false, true},
        {"a bool list", true, 3, true, false},
        {"an output list", true, 1000, true, false},
        {"a list for a single value: its first element", true, 0, false, true},
        {"a list for a string", true, 9, false, false},
    };
    StubPlugin plugin("Any");
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        TreeSource source(row.sourceIsList ? list(0, {number(0, 5), number(0, 6)}) : number(0, 5));
        const OwnedValue value = cloneParamValue(&plugin, source, row.code, row.isList);
        CHECK_EQ(value != nullptr, row.made);
        CHECK_EQ(source.depth(), std::size_t{0});
        if (value != nullptr && row.code == 0) CHECK_EQ(value->getInt(0, 0.0), 5);
    }
    TreeSource empty(list(0, {}));
    CHECK(cloneParamValue(&plugin, empty, 0, false) == nullptr);
    const OwnedValue emptyList = cloneParamValue(&plugin, empty, 0, true);
    CHECK(emptyList != nullptr && emptyList->getCount(0.0) == 0);
}

TEST_CASE(pairsLeaveNothingInTheHeap) {
    CHECK_EQ(setMemory().blocks, std::size_t{0});
    CHECK(setMemory().sizesAgree);
}
