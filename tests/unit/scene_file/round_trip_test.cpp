// Values as lines: what is written, what reads back as what, and that saving twice gives the same bytes.
#include <cmath>
#include <cstring>

#include "check.h"
#include "test_scene.h"

namespace {

// A parameter of plugin "p" as it is read and as it is written.
struct Row {
    const char* label;
    const char* read;
    const char* written;  // null: the same
};

const Row ROWS[] = {
    {"int", R"("int":-2147483648)", nullptr},
    {"int, largest", R"("int":2147483647)", nullptr},
    {"int, negative zero", R"("int":-0)", R"("int":0)"},
    {"float", R"("float":0.1)", nullptr},
    {"float, whole", R"("float":1.0)", R"("float":1)"},
    {"float, negative zero", R"("float":-0.0)", R"("float":-0)"},
    {"float, rounded to 32 bits", R"("float":0.30000000000000004)", R"("float":0.3)"},
    {"float, small", R"("float":0.0000001)", R"("float":1e-7)"},
    {"float, the smallest", R"("float":1.401298464324817e-45)", R"("float":1e-45)"},
    {"float, the largest", R"("float":3.4028235e38)", R"("float":3.4028235e38)"},
    {"float, no number", R"("float":"nan")", nullptr},
    {"float, infinite", R"("float":"-inf")", nullptr},
    {"double", R"("double":0.1)", nullptr},
    {"double, 17 digits", R"("double":0.30000000000000004)", nullptr},
    {"double, the smallest", R"("double":4.9406564584124654e-324)", R"("double":5e-324)"},
    {"double, infinite", R"("double":"inf")", nullptr},
    {"bool", R"("bool":true)", nullptr},
    {"bool, false", R"("bool":false)", nullptr},
    {"vector", R"("vector":[1,-2.5,"nan"])", nullptr},
    {"color", R"("color":[0.8,0.45,0.3])", nullptr},
    {"acolor", R"("acolor":[0.8,0.45,0.3,1])", nullptr},
    {"matrix", R"("matrix":[[1,0,0],[0,1,0],[0,0,1]])", nullptr},
    {"transform", R"("transform":[[[1,0,0],[0,1,0],[0,0,1]],[0.1,0.30000000000000004,-0]])", nullptr},
    {"string", R"("string":"a \"b\" \\ \n\t\u0001 é 😀")", nullptr},
    {"string, a slash", R"("string":"a\/b")", R"("string":"a/b")"},
    {"string, escaped characters", R"("string":"\u00e9\ud83d\ude00")", R"("string":"é😀")"},
    {"string, not UTF-8", R"("string":"\udcff\udc80a")", nullptr},
    {"string, bytes that together are UTF-8", R"("string":"\udcc3\udca9")", R"("string":"é")"},
    {"string, empty", R"("string":"")", nullptr},
    {"string, none", R"("string":null)", nullptr},
    {"plugin", R"("plugin":"p")", nullptr},
    {"plugin, output", R"("plugin":["p","out"])", nullptr},
    {"plugin, none", R"("plugin":null)", nullptr},
    {"texture, reference", R"("texture":"p")", nullptr},
    {"texture, output", R"("texture":["p","out"])", nullptr},
    {"texture, none", R"("texture":null)", nullptr},
    {"texture, color", R"("texture":[0.5,0.5,0.5])", nullptr},
    {"texture, acolor", R"("texture":[0.5,0.5,0.5,1])", nullptr},
    {"texture, color with nan", R"("texture":{"5":["nan",0,0]})", nullptr},
    {"texture_float, number", R"("texture_float":0.5)", nullptr},
    {"texture_float, nan", R"("texture_float":{"1":"nan"})", nullptr},
    {"texture_float, reference named nan", R"("texture_float":null)", nullptr},
    {"texture_float, int", R"("texture_float":{"0":7})", nullptr},
    {"texture_int", R"("texture_int":7)", nullptr},
    {"texture_int, output", R"("texture_int":["p","out"])", nullptr},
    {"texture_vector", R"("texture_vector":[1,2,3])", nullptr},
    {"texture_vector, output", R"("texture_vector":["p","out"])", nullptr},
    {"texture_matrix", R"("texture_matrix":[[1,0,0],[0,1,0],[0,0,1]])", nullptr},
    {"texture_transform", R"("texture_transform":[[[1,0,0],[0,1,0],[0,0,1]],[1,2,3]])", nullptr},
    {"texture_transform, matrix", R"("texture_transform":{"7":[[1,0,0],[0,1,0],[0,0,1]]})", nullptr},
    {"bool as int", R"("bool":{"0":1})", nullptr},
    {"double as float", R"("double":{"1":0.1})", nullptr},
    {"float, tagged as declared", R"("float":{"1":0.1})", R"("float":0.1)"},
    {"ints", R"("ints":[1,2,3])", nullptr},
    {"ints, empty", R"("ints":[])", nullptr},
    {"ints as floats", R"("ints":{"1[]":[0.5,1]})", nullptr},
    {"floats", R"("floats":[0.1,"nan","inf","-inf",-0])", nullptr},
    {"doubles", R"("doubles":[0.1,0.30000000000000004])", nullptr},
    {"bools", R"("bools":[true,false])", nullptr},
    {"vectors", R"("vectors":[[1,2,3],[4,5,6]])", nullptr},
    {"colors", R"("colors":[[1,2,3],[4,5,6]])", nullptr},
    {"acolors", R"("acolors":[[1,2,3,4]])", nullptr},
    {"matrices", R"("matrices":[[[1,0,0],[0,1,0],[0,0,1]]])", nullptr},
    {"transforms", R"("transforms":[[[[1,0,0],[0,1,0],[0,0,1]],[0.1,0,0]]])", nullptr},
    {"strings", R"("strings":["a",null,"\udcff"])", nullptr},
    {"plugins", R"("plugins":["p",null,["p","out"]])", nullptr},
    {"textures", R"("textures":["p",null,["p","out"]])", nullptr},
    {"lists of ints", R"("lists_ints":[[1,2],null,[],[3]])", nullptr},
    {"lists of floats", R"("lists_floats":[[0.5],[]])", nullptr},
    {"lists of vectors", R"("lists_vectors":[[[1,2,3]],[]])", nullptr},
    {"lists of plugins", R"("lists_plugins":[["p",null],[],["p"]])", nullptr},
    {"lists, none", R"("lists_ints":[])", nullptr},
    {"lists of ints, of another shape", R"("lists_ints":{"12":[{"0":1},{"12":[{"9":"a"}]}]})", nullptr},
    {"lists of ints, tagged", R"("lists_ints":{"12":[{"12":[{"0":1}]}]})", R"("lists_ints":[[1]])"},
    {"map channels", R"("channels":[{"channel":3,"vertices":[[0,0,0],[1,0,0]],"faces":[0,1,0]}])", nullptr},
    {"map channels, keys in another order", R"("channels":[{"faces":[],"vertices":[],"channel":0}])",
     R"("channels":[{"channel":0,"vertices":[],"faces":[]}])"},
    {"map channels, none", R"("channels":[])", nullptr},
    {"any list", R"("lists":[{"0":5},{"1":0.5},{"2":0.1},{"3":true},{"9":"a"},{"10":"p"},null,{"12":[{"12":[]}]}])",
     nullptr},
    {"any list with a flat one", R"("lists":[{"0[]":[1,2]},{"4[]":[[1,2,3]]}])", nullptr},
    {"any list, structured", R"("lists":[{"4":[1,2,3]},{"5":[1,2,3]},{"6":[1,2,3,4]},{"7":[[1,0,0],[0,1,0],[0,0,1]]}])",
     nullptr},
    {"spaces", " \"int\" : 5 ", R"("int":5)"},
};

std::string lineOf(const char* params) {
    return "{\"type\":\"Every\",\"name\":\"p\",\"params\":{" + std::string(params) + "}}\n";
}

std::string rigidLineOf(const Row& row) {
    const std::string read = row.written != nullptr ? row.written : row.read;
    const std::string name = read.substr(1, read.find('"', 1) - 1);
    return "{\"type\":\"Every\",\"name\":\"p\",\"params\":{" + read + "},\"rigid\":[\"" + name + "\"]}\n";
}

}  // namespace

TEST_CASE(everyValueIsWrittenAsItWasRead) {
    for (const Row& row : ROWS) {
        CHECK_ROW(row.label);
        TestScene scene;
        CHECK_TEXT(scene.readLines(lineOf(row.read)).c_str(), "");
        const std::string first = scene.lines();
        CHECK_TEXT(first.c_str(), lineOf(row.written != nullptr ? row.written : row.read).c_str());
        TestScene again;
        CHECK_TEXT(again.readLines(first).c_str(), "");
        CHECK_TEXT(again.lines().c_str(), first.c_str());
    }
}

TEST_CASE(rigidValuesAreWrittenAsRigid) {
    for (const Row& row : ROWS) {
        if (std::strncmp(row.read, "\"channels", 9) == 0) continue;
        CHECK_ROW(row.label);
        TestScene scene;
        const std::string line = rigidLineOf(row);
        CHECK_TEXT(scene.readLines(line).c_str(), "");
        CHECK_TEXT(scene.lines().c_str(), line.c_str());
    }
}

TEST_CASE(everyValueIsFreed) {
    for (const Row& row : ROWS) {
        CHECK_ROW(row.label);
        const Offline::Counters before = Offline::counters;
        {
            TestScene scene;
            scene.readLines(lineOf(row.read));
            CHECK(Offline::counters.valuesMade > before.valuesMade);
        }
        CHECK_EQ(Offline::counters.valuesFreed - before.valuesFreed, Offline::counters.valuesMade - before.valuesMade);
        CHECK_EQ(Offline::counters.liveBlocks, before.liveBlocks);
        CHECK_EQ(Offline::counters.wrongSizes, before.wrongSizes);
    }
}

TEST_CASE(aWholeSceneIsWrittenAsItWasRead) {
    const char* text =
        "{\"kelmo-scene\":1,\"up\":\"z\",\"unit\":0.01,\"source\":\"a \\udcff.glb\"}\n"
        "{\"type\":\"Node\",\"name\":\"n\",\"node\":\"|n|nShape\",\"params\":{\"material\":\"m\",\"visible\":true}}\n"
        "{\"type\":\"Material\",\"name\":\"late\",\"deferred\":true,\"params\":{\"next\":\"late2\"}}\n"
        "{\"type\":\"Material\",\"name\":\"late2\",\"deferred\":true}\n"
        "{\"type\":\"Material\",\"name\":\"m\"}\n"
        "{\"type\":\"Material\",\"name\":\"\\udc80\",\"params\":{\"color\":[1,0,0],\"next\":\"m\"},\"rigid\":[\"next\"]"
        "}\n";
    TestScene scene;
    CHECK_TEXT(scene.read(text).c_str(), "");
    CHECK_TEXT(scene.text().c_str(), text);
}

TEST_CASE(theOrderOfKeysDoesNotMatter) {
    TestScene scene;
    CHECK_TEXT(scene
                   .readLines("{\"rigid\":[\"int\"],\"params\":{\"int\":1,\"plugin\":\"p\"},\"name\":\"p\","
                              "\"deferred\":false,\"type\":\"Every\"}")
                   .c_str(),
               "");
    CHECK_TEXT(scene.lines().c_str(),
               "{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":1,\"plugin\":\"p\"},\"rigid\":[\"int\"]}\n");
}

TEST_CASE(referencesToDeletedPluginsAreWrittenAsNone) {
    TestScene scene;
    CHECK_TEXT(scene
                   .readLines("{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":[\"q\",\"out\"],\"plugins\":"
                              "[\"q\",\"p\"]}}\n{\"type\":\"Every\",\"name\":\"q\"}\n")
                   .c_str(),
               "");
    const char* output = "";
    CHECK(scene.value("plugin")->getPlugin(0, 0.0, &output) != nullptr);
    CHECK_TEXT(output, "out");
    CHECK(scene.contents.remove(scene.find("q")));
    CHECK(scene.value("plugin")->getPlugin(0, 0.0, &output) == nullptr);
    CHECK(output == nullptr);
    CHECK_TEXT(scene.lines().c_str(),
               "{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":null,\"plugins\":[null,\"p\"]}}\n");
}

TEST_CASE(aLineMayEndWithTheFileAndHoldACarriageReturn) {
    TestScene scene;
    CHECK_TEXT(scene.read("{\"kelmo-scene\":1}\r\n{\"type\":\"Every\",\"name\":\"p\"}").c_str(), "");
    CHECK(scene.find("p") != nullptr);
}
