#include "core/catalogue/type_reader.h"

#include <cmath>
#include <cstring>
#include <string>

#include "core/catalogue/type_writer.h"
#include "support/check.h"

using namespace Offline;
using KUtils::ParamDesc;

namespace {

using Types = std::vector<std::unique_ptr<PluginType>>;

Types read(const std::string& text, std::string& error) { return readTypes(text.data(), text.size(), error); }

// The types of a text without an error.
Types readGood(const std::string& text) {
    std::string error;
    Types types = read(text, error);
    CHECK_TEXT(error.c_str(), "");
    return types;
}

std::string typeWithParam(const std::string& param) { return R"({"types":[{"name":"T","params":[)" + param + "]}]}"; }

}  // namespace

TEST_CASE(aTypeIsReadWhole) {
    const Types types = readGood(R"({"family":"Materials","types":[{
        "name":"MtlTest","kind":"material","doc":"A test.","unique":true,"descriptor":false,
        "interfaces":["texture","texture_transform"],
        "params":[{"name":"a","type":"int","default":-3,"doc":"An int."},{"name":"b","type":"list","shape":"plugins"}]}]})");
    CHECK_EQ(types.size(), std::size_t{1});
    PluginType& type = *types[0];
    CHECK_TEXT(type.getTypeName(), "MtlTest");
    CHECK_TEXT(type.family.c_str(), "Materials");
    CHECK_TEXT(type.doc.c_str(), "A test.");
    CHECK(type.kind == PluginKind::Material);
    CHECK(type.unique);
    CHECK(!type.offersDescriptor);
    CHECK_EQ(type.textures, std::uint32_t{OFFERS_TEXTURE | OFFERS_TEXTURE_TRANSFORM});
    CHECK_EQ(type.params->count, 2);
    CHECK_TEXT(type.params->records[0].name, "a");
    CHECK_EQ(type.params->records[0].defaultInt, -3);
    CHECK_TEXT(type.paramDoc(0).c_str(), "An int.");
    CHECK_TEXT(type.params->records[1].name, "b");
    CHECK(type.shape(0) == ListShape::Any);
    CHECK(type.shape(1) == ListShape::Plugins);
}

TEST_CASE(aTypeHasDefaults) {
    const Types types = readGood(R"({"types":[{"name":"T"}]})");
    CHECK(types[0]->kind == PluginKind::Other);
    CHECK(!types[0]->unique);
    CHECK(types[0]->offersDescriptor);
    CHECK_EQ(types[0]->textures, 0u);
    CHECK_EQ(types[0]->params->count, 0);
}

TEST_CASE(everyTypeNameHasItsCode) {
    struct Row {
        const char* name;
        int code;
    };
    const Row rows[] = {
        {"int", 0},
        {"float", 1},
        {"double", 2},
        {"bool", 3},
        {"vector", 4},
        {"color", 5},
        {"acolor", 6},
        {"matrix", 7},
        {"transform", 8},
        {"string", 9},
        {"plugin", 10},
        {"texture", 11},
        {"list", 12},
        {"texture_float", 13},
        {"texture_int", 14},
        {"texture_vector", 15},
        {"texture_matrix", 16},
        {"texture_transform", 17},
        {"output_texture", 1000},
        {"output_texture_float", 1001},
        {"output_texture_int", 1002},
        {"output_texture_vector", 1003},
        {"output_texture_matrix", 1004},
        {"output_texture_transform", 1005},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.name);
        const std::string name = row.name;
        const Types types = readGood(typeWithParam(R"({"name":"p","type":")" + name + "\"}"));
        CHECK_EQ(static_cast<int>(types[0]->param(0).type), row.code);
        CHECK_EQ(types[0]->param(0).listCount, row.code == 12 ? 0 : -1);
        CHECK_EQ(static_cast<int>(types[0]->param(0).hasDefault), 0);
        if (row.code >= 1000) continue;
        const Types lists = readGood(typeWithParam(R"({"name":"p","list":true,"type":")" + name + "\"}"));
        CHECK_EQ(lists[0]->param(0).listCount, 0);
    }
}

TEST_CASE(defaultsLieInTheFieldOfTheirType) {
    const Types types = readGood(R"({"types":[{"name":"T","params":[
        {"name":"int","type":"int","default":-2147483648},
        {"name":"no int","type":"int","default":-0},
        {"name":"float","type":"float","default":0.1},
        {"name":"double","type":"double","default":0.1},
        {"name":"bool","type":"bool","default":true},
        {"name":"vector","type":"vector","default":[1,2,3]},
        {"name":"color","type":"color","default":[1,2,3]},
        {"name":"acolor","type":"acolor","default":[1,2,3,4]},
        {"name":"matrix","type":"matrix","default":[[1,2,3],[4,5,6],[7,8,9]]},
        {"name":"transform","type":"transform","default":[[[1,2,3],[4,5,6],[7,8,9]],[10,11,12]]},
        {"name":"string","type":"string","default":"text"},
        {"name":"null string","type":"string","default":null},
        {"name":"texture","type":"texture","default":[1,2,3,4]},
        {"name":"texture_float","type":"texture_float","default":"-inf"},
        {"name":"texture_int","type":"texture_int","default":7},
        {"name":"texture_vector","type":"texture_vector","default":["nan",0,1e-3]}
      ]}]})");
    PluginType& type = *types[0];
    for (std::size_t i = 0; i < type.paramCount(); ++i) CHECK_EQ(static_cast<int>(type.param(i).hasDefault), 1);
    CHECK_EQ(type.findParam("int")->defaultInt, -2147483647 - 1);
    CHECK_EQ(type.findParam("no int")->defaultInt, 0);
    CHECK_EQ(type.findParam("float")->defaultFloat, 0.1f);
    CHECK_EQ(type.findParam("double")->defaultDouble, 0.1);
    CHECK_EQ(type.findParam("bool")->defaultInt, 1);
    CHECK_EQ(type.findParam("vector")->defaultVector.z, 3.0f);
    CHECK_EQ(type.findParam("color")->defaultColor.b, 3.0f);
    CHECK_EQ(type.findParam("acolor")->defaultAColor.alpha, 4.0f);
    CHECK_EQ(type.findParam("matrix")->defaultMatrix.columns[2].y, 8.0f);
    CHECK_EQ(type.findParam("transform")->defaultTransform.matrix.columns[1].x, 4.0f);
    CHECK_EQ(type.findParam("transform")->defaultTransform.offset.z, 12.0f);
    CHECK_TEXT(type.findParam("string")->defaultString, "text");
    CHECK(type.findParam("null string")->defaultString == nullptr);
    CHECK_EQ(type.findParam("texture")->defaultAColor.color.g, 2.0f);
    CHECK(std::isinf(type.findParam("texture_float")->defaultFloat));
    CHECK_EQ(type.findParam("texture_int")->defaultInt, 7);
    CHECK(std::isnan(type.findParam("texture_vector")->defaultVector.x));
}

TEST_CASE(theFirstOfANameIsFound) {
    const Types types = readGood(R"({"types":[{"name":"T","params":[
        {"name":"x","type":"int"},{"name":"p","type":"float"},{"name":"p","type":"string"}]}]})");
    CHECK_EQ(types[0]->params->count, 3);
    CHECK_EQ(types[0]->paramIndex("p"), 1);
    CHECK_EQ(types[0]->paramIndex("P"), -1);
    CHECK(types[0]->findParam("p") == &types[0]->params->records[1]);
    CHECK(types[0]->findParam("") == nullptr);
}

TEST_CASE(whatIsWrongIsNamed) {
    struct Row {
        const char* text;
        const char* error;
    };
    const Row rows[] = {
        {"", "line 1, column 1: The document is empty."},
        {"{\"types\":[\n  {,", "line 2, column 4: Missing a name for object member."},
        {"{\"types\":[]} x", "line 1, column 14: The document root must not be followed by other values."},
        {"{\"family\":\"\xff\"}", "line 1, column 12: Invalid encoding in string."},
        {"[]", "expected an object, found a list of 0"},
        {"{}", "the key \"types\" is missing"},
        {R"({"types":5})", "types: expected a list, found 5"},
        {R"({"type":[]})", "unknown key \"type\"; did you mean \"types\"?"},
        {R"({"types":[],"types":[]})", "the key \"types\" stands twice"},
        {R"({"family":null,"types":[]})", "family: expected a text, found null"},
        {R"({"types":["x"]})", "types[0]: expected an object, found \"x\""},
        {R"({"types":[{}]})", "types[0]: the key \"name\" is missing"},
        {R"({"types":[{"name":""}]})", "types[0].name: the text is empty"},
        {R"({"types":[{"name":"a\u0000b"}]})", "types[0] \"a\".name: a text cannot hold a zero byte"},
        {R"({"types":[{"name":"T"},{"name":"T"}]})", "types[1] \"T\": the type \"T\" stands twice"},
        {R"({"types":[{"name":"T","kind":"ligt"}]})",
         "types[0] \"T\".kind: unknown kind \"ligt\"; did you mean \"light\"?"},
        {R"({"types":[{"name":"T","params":[{"name":"p","type":"int","defualt":1}]}]})",
         "types[0] \"T\".params[0] \"p\": unknown key \"defualt\"; did you mean \"default\"?"},
        {R"({"types":[{"name":"T","kind":"stone"}]})", "types[0] \"T\".kind: unknown kind \"stone\""},
        {R"({"types":[{"name":"T","kind":""}]})", "types[0] \"T\".kind: unknown kind \"\""},
        {R"({"types":[{"name":"T","unique":1}]})", "types[0] \"T\".unique: expected true or false, found 1"},
        {R"({"types":[{"name":"T","colour":1}]})", "types[0] \"T\": unknown key \"colour\""},
        {R"({"types":[{"name":"T","interfaces":"texture"}]})",
         "types[0] \"T\".interfaces: expected a list, found \"texture\""},
        {R"({"types":[{"name":"T","interfaces":["texture_flaot"]}]})",
         "types[0] \"T\".interfaces[0]: unknown interface \"texture_flaot\"; did you mean \"texture_float\"?"},
        {R"({"types":[{"name":"T","interfaces":[true]}]})",
         "types[0] \"T\".interfaces[0]: expected a text, found true"},
        {R"({"types":[{"name":"T","params":{}}]})", "types[0] \"T\".params: expected a list, found an object"},
        {R"({"types":[{"name":"T","params":[{"type":"int"}]}]})",
         "types[0] \"T\".params[0]: the key \"name\" is missing"},
        {R"({"types":[{"name":"T","params":[{"name":"p"}]}]})",
         "types[0] \"T\".params[0] \"p\": the key \"type\" is missing"},
        {R"({"types":[{"name":"T","params":[{"name":"p","type":"vectr"}]}]})",
         "types[0] \"T\".params[0] \"p\".type: unknown type \"vectr\"; did you mean \"vector\"?"},
        {R"({"types":[{"name":"T","params":[{"name":"p","type":"int","shape":"ints"}]}]})",
         "types[0] \"T\".params[0] \"p\".shape: only a parameter of type \"list\" has a shape"},
        {R"({"types":[{"name":"T","params":[{"name":"p","type":"list","shape":"int"}]}]})",
         "types[0] \"T\".params[0] \"p\".shape: unknown shape \"int\"; did you mean \"ints\"?"},
        {R"({"types":[{"name":"T","params":[{"name":"p","type":"output_texture","list":true}]}]})",
         "types[0] \"T\".params[0] \"p\": an output is no list"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.error);
        std::string error;
        CHECK_EQ(read(row.text, error).size(), std::size_t{0});
        CHECK_TEXT(error.c_str(), row.error);
    }
}

TEST_CASE(wrongDefaultsAreNamed) {
    struct Row {
        const char* param;
        const char* error;
    };
    const Row rows[] = {
        {R"("type":"int","default":1.5)", ": expected an integer of 32 bits, found 1.5"},
        {R"("type":"int","default":2147483648)", ": expected an integer of 32 bits, found 2147483648"},
        {R"("type":"texture_int","default":"x")", ": expected an integer of 32 bits, found \"x\""},
        {R"("type":"bool","default":1)", ": expected true or false, found 1"},
        {R"("type":"float","default":"fast")", ": expected a number, found \"fast\""},
        {R"("type":"float","default":-1e39)", ": expected a number that fits in 32 bits, found -1e+39"},
        {R"("type":"vector","default":[0,0,1e39])", "[2]: expected a number that fits in 32 bits, found 1e+39"},
        {R"("type":"int","default":-0.5)", ": expected an integer of 32 bits, found -0.5"},
        {R"("type":"double","default":null)", ": expected a number, found null"},
        {R"("type":"vector","default":[1,2])", ": expected a list of 3 numbers, found a list of 2"},
        {R"("type":"color","default":[1,2,true])", "[2]: expected a number, found true"},
        {R"("type":"acolor","default":[1,2,3])", ": expected a list of 4 numbers, found a list of 3"},
        {R"("type":"texture","default":[1,2,3])", ": expected a list of 4 numbers, found a list of 3"},
        {R"("type":"matrix","default":[1,2,3])", "[0]: expected a list of 3 numbers, found 1"},
        {R"("type":"matrix","default":[[1,2,3]])", ": expected a list of 3 columns, found a list of 1"},
        {R"("type":"transform","default":[[[1,2,3],[1,2,3],[1,2,3]]])",
         ": expected a list of matrix and offset, found a list of 1"},
        {R"("type":"transform","default":[[[1,2,3],[1,2,3],[1,2,3]],[1]])",
         "[1]: expected a list of 3 numbers, found a list of 1"},
        {R"("type":"transform","default":[[[1,2,3],[1,2,3],[1]],[1]])",
         "[0][2]: expected a list of 3 numbers, found a list of 1"},
        {R"("type":"string","default":5)", ": expected a text or null, found 5"},
        {R"("type":"string","default":"a\u0000b")", ": a text cannot hold a zero byte"},
        {R"("type":"plugin","default":null)", ": a parameter of this type has no default"},
        {R"("type":"output_texture","default":1)", ": a parameter of this type has no default"},
        {R"("type":"int","list":true,"default":1)", ": a list has no default"},
        {R"("type":"list","default":[])", ": a list has no default"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.param);
        std::string error;
        read(typeWithParam(R"({"name":"p",)" + std::string(row.param) + "}"), error);
        CHECK_TEXT(error.c_str(), ("types[0] \"T\".params[0] \"p\".default" + std::string(row.error)).c_str());
    }
}

TEST_CASE(aDeeplyNestedFileIsAnErrorOnly) {
    std::string error;
    read(std::string(2000000, '['), error);
    CHECK(!error.empty());
    const std::string deep =
        R"({"types":[{"name":"T","kind":)" + std::string(100000, '[') + std::string(100000, ']') + "}]}";
    read(deep, error);
    CHECK_TEXT(error.c_str(), "types[0] \"T\".kind: expected a text, found a list of 1");
}

TEST_CASE(typesAreWrittenAsTheyCouldBeRead) {
    const std::string written =
        R"({"name":"T","family":"F","kind":"light","doc":"A \"light\".","unique":true,"interfaces":["texture_int"],)"
        R"("descriptor":false,"params":[)"
        R"({"name":"i","type":"int","default":-7,"doc":"An int."},)"
        R"({"name":"b","type":"bool","default":false},)"
        R"({"name":"f","type":"float","default":0.1},)"
        R"({"name":"g","type":"texture_float","default":16777216},)"
        R"({"name":"h","type":"float","default":-0},)"
        R"({"name":"e","type":"double","default":-0},)"
        R"({"name":"k","type":"color","default":[0,-0,0]},)"
        R"({"name":"d","type":"double","default":0.30000000000000004},)"
        R"({"name":"n","type":"vector","default":["nan",-0.5,1e-7]},)"
        R"({"name":"c","type":"color","default":[0.5,1,1.5]},)"
        R"({"name":"t","type":"texture","default":[0,0.25,0.5,1]},)"
        R"({"name":"m","type":"texture_matrix","default":[[1,0,0],[0,1,0],[0,0,1]]},)"
        R"({"name":"x","type":"transform","default":[[[1,0,0],[0,1,0],[0,0,1]],[0,0,"inf"]]},)"
        R"({"name":"s","type":"string","default":"a\nb"},)"
        R"({"name":"z","type":"string","default":null},)"
        R"({"name":"v","type":"vector","list":true},)"
        R"({"name":"l","type":"list","shape":"map_channels"},)"
        R"({"name":"y","type":"list"},)"
        R"({"name":"o","type":"output_texture_vector"}]})";
    // In a file the family stands beside the types.
    std::string file = written;
    const std::string family = R"("family":"F",)";
    file.erase(file.find(family), family.size());
    const Types types = readGood(R"({"family":"F","types":[)" + file + "]}");
    CHECK_EQ(types.size(), std::size_t{1});
    CHECK_TEXT(typeAsJson(*types[0]).c_str(), written.c_str());
}
