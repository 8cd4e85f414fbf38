// Damaged scenes: every message to the letter, with its line and column, and what stays.
#include "check.h"
#include "core/core_api.h"
#include "test_scene.h"

namespace {

struct Row {
    const char* line;  // the third of the scene
    std::size_t length;
    const char* error;
    bool carried;  // plugin "p" stands in the scene all the same
};

const Row LINES[] = {
    {"", 0, "[s] line 3, column 1 | expected a plugin, as {\"type\":...,\"name\":...}, found the end of the line",
     false},
    {"x", 1, "[s] line 3, column 1 | expected a plugin, as {\"type\":...,\"name\":...}, found x", false},
    {"[]", 2, "[s] line 3, column 1 | expected a plugin, as {\"type\":...,\"name\":...}, found a list", false},
    {"{\"type\":\"Every\",\"name\":\"p\"", 26,
     "[s] line 3, column 27 | plugin \"p\" | expected \",\" or \"}\", found the end of the line", false},
    {"{\"type\":\"Every\",\"name\":\"p\"} x", 29,
     "[s] line 3, column 29 | plugin \"p\" | expected the end of the line, found x", false},
    {"{\"type\":\"Evry\",\"name\":\"p\"}", 26,
     "[s] line 3, column 9 | there is no plugin type \"Evry\" (did you mean \"Every\"?)", false},
    {"{\"type\":5}", 10, "[s] line 3, column 9 | expected the name of a plugin type, found 5", false},
    {"{\"name\":\"p\"}", 12, "[s] line 3, column 1 | plugin \"p\" | a plugin must have a \"type\"", false},
    {"{\"type\":\"Every\"}", 16, "[s] line 3, column 1 | a plugin must have a \"name\"", false},
    {"{\"type\":\"Every\",\"name\":\"\"}", 26, "[s] line 3, column 24 | the name of a plugin must not be empty", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"parms\":{}}", 38,
     "[s] line 3, column 28 | plugin \"p\" | a plugin has no key \"parms\" (did you mean \"params\"?)", false},
    {"{\"type\":\"Every\",\"type\":\"Every\"}", 31, "[s] line 3, column 17 | the key \"type\" stands here twice",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"node\":\"\"}", 37,
     "[s] line 3, column 35 | plugin \"p\" | the name of a node must not be empty", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"deferred\":1}", 40,
     "[s] line 3, column 39 | plugin \"p\" | expected true or false, found 1", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"rigid\":[\"int\"]}", 43,
     "[s] line 3, column 37 | plugin \"p\" | \"rigid\" names \"int\", which has no value here", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"float\":1},\"rigid\":[\"flot\"]}", 65,
     "[s] line 3, column 58 | plugin \"p\" | \"rigid\" names \"flot\", which has no value here (did you mean "
     "\"float\"?)",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":[]}", 39,
     "[s] line 3, column 37 | plugin \"p\" | expected an object of parameters, found a list", false},
    {"{\"type\":\"Every\" \"name\":\"p\"}", 27, "[s] line 3, column 17 | expected \",\" or \"}\", found \"name\"",
     false},
    {"{\"type\":\"Every\",}", 17, "[s] line 3, column 17 | expected a key, found \"}\"", false},
    {"{type:1}", 8, "[s] line 3, column 2 | expected a key, found type", false},
    {"{\"type\":\"Every\",\"name\":\"taken\"}", 31,
     "[s] line 3, column 1 | plugin \"taken\" | a plugin of this name stands in the scene already", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"flot\":1}}", 47,
     "[s] line 3, column 38 | plugin \"p\", parameter \"flot\" | the type \"Every\" has no parameter \"flot\" (did you "
     "mean \"float\"?)",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":1,\"int\":2}}", 54,
     "[s] line 3, column 46 | plugin \"p\", parameter \"int\" | the parameter stands here twice", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":1.5}}", 48,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected an integer, found 1.5", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":2147483648}}", 55,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected an integer from -2147483648 to 2147483647, "
     "found 2147483648",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":-2147483649}}", 56,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected an integer from -2147483648 to 2147483647, "
     "found -2147483649",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":01}}", 47,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected an integer, found 01", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":+1}}", 47,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected an integer, found \"+\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":\"a\"}}", 48,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected an integer, found \"a\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":true}}", 49,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected an integer, found true", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":[1]}}", 48,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected an integer, found a list", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":null}}", 49,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected an integer, found null", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":{\"9\":\"a\"}}}", 54,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected a value of type int, found one of type string",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":{}}}", 47,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected a value with its type, as {\"0\":1}, found {}",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":{\"x\":1}}}", 52,
     "[s] line 3, column 45 | plugin \"p\", parameter \"int\" | expected a type code, as \"0\" or \"0[]\" for a list, "
     "found \"x\"",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":{\"0\":1,\"1\":2}}}", 58,
     "[s] line 3, column 51 | plugin \"p\", parameter \"int\" | a value has one type only", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":{\"11\":1}}}", 53,
     "[s] line 3, column 45 | plugin \"p\", parameter \"int\" | expected a type code, as \"0\" or \"0[]\" for a list, "
     "found \"11\"",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":{\"12[]\":[]}}}", 56,
     "[s] line 3, column 45 | plugin \"p\", parameter \"int\" | expected a type code, as \"0\" or \"0[]\" for a list, "
     "found \"12[]\"",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"float\":\"red\"}}", 52,
     "[s] line 3, column 46 | plugin \"p\", parameter \"float\" | expected a number, found \"red\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"float\":1e39}}", 51,
     "[s] line 3, column 46 | plugin \"p\", parameter \"float\" | expected a number that fits in 32 bits, found 1e39",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"float\":1.}}", 49,
     "[s] line 3, column 46 | plugin \"p\", parameter \"float\" | expected a number, found 1.", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"float\":.5}}", 49,
     "[s] line 3, column 46 | plugin \"p\", parameter \"float\" | expected a number, found \".\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"float\":1e}}", 49,
     "[s] line 3, column 46 | plugin \"p\", parameter \"float\" | expected a number, found 1e", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"float\":-}}", 48,
     "[s] line 3, column 46 | plugin \"p\", parameter \"float\" | expected a number, found -", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"float\":NaN}}", 50,
     "[s] line 3, column 46 | plugin \"p\", parameter \"float\" | expected a number, found NaN", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"double\":1e400}}", 53,
     "[s] line 3, column 47 | plugin \"p\", parameter \"double\" | expected a number that fits in 64 bits, found 1e400",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"bool\":1}}", 47,
     "[s] line 3, column 45 | plugin \"p\", parameter \"bool\" | expected true or false, found 1", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"vector\":[1,2]}}", 53,
     "[s] line 3, column 51 | plugin \"p\", parameter \"vector\" | expected a vector of 3 numbers, found \"]\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"vector\":[1,2,3,4]}}", 57,
     "[s] line 3, column 53 | plugin \"p\", parameter \"vector\" | expected \"]\", found \",\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"vector\":5}}", 49,
     "[s] line 3, column 47 | plugin \"p\", parameter \"vector\" | expected a vector of 3 numbers, found 5", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"vector\":[1,\"x\",3]}}", 57,
     "[s] line 3, column 50 | plugin \"p\", parameter \"vector\" | expected a number, found \"x\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"color\":[1,2}}", 51,
     "[s] line 3, column 50 | plugin \"p\", parameter \"color\" | expected a colour of 3 numbers, found \"}\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"acolor\":[1,2,3]}}", 55,
     "[s] line 3, column 53 | plugin \"p\", parameter \"acolor\" | expected a colour of 4 numbers, found \"]\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"matrix\":[1,2,3]}}", 55,
     "[s] line 3, column 48 | plugin \"p\", parameter \"matrix\" | expected a vector of 3 numbers, found 1", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"matrix\":[[1,2,3]]}}", 57,
     "[s] line 3, column 55 | plugin \"p\", parameter \"matrix\" | expected \",\", found \"]\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"transform\":[[[1,0,0],[0,1,0],[0,0,1]]]}}", 78,
     "[s] line 3, column 76 | plugin \"p\", parameter \"transform\" | expected \",\", found \"]\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"transform\":[[[1,0,0],[0,1,0],[0,0,1]],5]}}", 80,
     "[s] line 3, column 77 | plugin \"p\", parameter \"transform\" | expected an offset of 3 numbers, found 5", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":5}}", 49,
     "[s] line 3, column 47 | plugin \"p\", parameter \"string\" | expected a text or null, found 5", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"a\001\"}}", 52,
     "[s] line 3, column 49 | plugin \"p\", parameter \"string\" | the byte 0x01 in a text must be written with a "
     "backslash",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"\377\"}}", 51,
     "[s] line 3, column 48 | plugin \"p\", parameter \"string\" | the byte 0xff in a text is not UTF-8", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"\355\240\200\"}}", 53,
     "[s] line 3, column 48 | plugin \"p\", parameter \"string\" | the byte 0xed in a text is not UTF-8", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"\\u0000\"}}", 56,
     "[s] line 3, column 48 | plugin \"p\", parameter \"string\" | a text cannot hold the character U+0000", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"\\ud800\"}}", 56,
     "[s] line 3, column 48 | plugin \"p\", parameter \"string\" | half a surrogate pair in a text", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"\\udc00\"}}", 56,
     "[s] line 3, column 48 | plugin \"p\", parameter \"string\" | half a surrogate pair in a text", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"\\x\"}}", 52,
     "[s] line 3, column 48 | plugin \"p\", parameter \"string\" | a backslash in a text must stand before one of "
     "\"\\/bfnrtu",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"\\u12g4\"}}", 56,
     "[s] line 3, column 52 | plugin \"p\", parameter \"string\" | expected four hexadecimal digits after \"\\u\"",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"abc}}", 52,
     "[s] line 3, column 47 | plugin \"p\", parameter \"string\" | the text that begins here does not end", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"string\":\"\000\"}}", 51,
     "[s] line 3, column 48 | plugin \"p\", parameter \"string\" | the byte 0x00 cannot stand in a text", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":5}}", 49,
     "[s] line 3, column 47 | plugin \"p\", parameter \"plugin\" | expected a plugin's name, [name, output] or null, "
     "found 5",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":[\"p\"]}}", 53,
     "[s] line 3, column 51 | plugin \"p\", parameter \"plugin\" | expected \",\", found \"]\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":[\"p\",5]}}", 55,
     "[s] line 3, column 52 | plugin \"p\", parameter \"plugin\" | expected the name of an output, found 5", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":[\"p\",\"out\",1]}}", 61,
     "[s] line 3, column 57 | plugin \"p\", parameter \"plugin\" | expected \"]\", found \",\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":\"nobody\"}}", 56,
     "[s] line 3, column 47 | plugin \"p\", parameter \"plugin\" | there is no plugin \"nobody\"", true},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":\"takn\"}}", 54,
     "[s] line 3, column 47 | plugin \"p\", parameter \"plugin\" | there is no plugin \"takn\" (did you mean "
     "\"taken\"?)",
     true},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":[\"nobody\",\"out\"]}}", 64,
     "[s] line 3, column 48 | plugin \"p\", parameter \"plugin\" | there is no plugin \"nobody\"", true},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugins\":[\"p\",\"nobody\",\"noone\"]}}", 71,
     "[s] line 3, column 53 | plugin \"p\", parameter \"plugins\" | there is no plugin \"nobody\" (the first of 2 such "
     "references)",
     true},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"texture\":5}}", 50,
     "[s] line 3, column 48 | plugin \"p\", parameter \"texture\" | expected a plugin's name, [name, output], null, or "
     "a colour of 3 or 4 numbers, found 5",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"texture\":[1,2]}}", 54,
     "[s] line 3, column 48 | plugin \"p\", parameter \"texture\" | expected a plugin's name, [name, output], null, or "
     "a colour of 3 or 4 numbers, found a list",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"texture\":[1,2,3,4,5]}}", 60,
     "[s] line 3, column 57 | plugin \"p\", parameter \"texture\" | expected \"]\", found 5", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"texture_float\":true}}", 59,
     "[s] line 3, column 54 | plugin \"p\", parameter \"texture_float\" | expected a number, found true", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"texture_float\":[1]}}", 58,
     "[s] line 3, column 54 | plugin \"p\", parameter \"texture_float\" | expected a number, found a list", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"out\":1}}", 46,
     "[s] line 3, column 44 | plugin \"p\", parameter \"out\" | expected no value, the parameter is an output, found 1",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"textures\":[5]}}", 53,
     "[s] line 3, column 50 | plugin \"p\", parameter \"textures\" | expected a plugin's name, [name, output] or null, "
     "found 5",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"ints\":5}}", 47,
     "[s] line 3, column 45 | plugin \"p\", parameter \"ints\" | expected a list, found 5", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"ints\":[1,]}}", 50,
     "[s] line 3, column 48 | plugin \"p\", parameter \"ints\" | expected an integer, found \"]\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"ints\":[1 2]}}", 51,
     "[s] line 3, column 48 | plugin \"p\", parameter \"ints\" | expected \",\" or \"]\", found 2", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"ints\":[1,2.5]}}", 53,
     "[s] line 3, column 48 | plugin \"p\", parameter \"ints\" | expected an integer, found 2.5", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"ints\":{\"9[]\":[\"a\"]}}}", 59,
     "[s] line 3, column 45 | plugin \"p\", parameter \"ints\" | expected a value of type list of int, found one of "
     "type list of string",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"ints\":{\"0\":1}}}", 53,
     "[s] line 3, column 45 | plugin \"p\", parameter \"ints\" | expected a value of type list of int, found one of "
     "type int",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"int\":{\"0[]\":[1]}}}", 56,
     "[s] line 3, column 44 | plugin \"p\", parameter \"int\" | expected a value of type int, found one of type list "
     "of int",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"lists_ints\":[1]}}", 55,
     "[s] line 3, column 52 | plugin \"p\", parameter \"lists_ints\" | expected a list, found 1", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"lists_ints\":[[1,\"a\"]]}}", 61,
     "[s] line 3, column 55 | plugin \"p\", parameter \"lists_ints\" | expected an integer, found \"a\"", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"channels\":[{}]}}", 54,
     "[s] line 3, column 50 | plugin \"p\", parameter \"channels\" | a map channel has \"channel\", \"vertices\" and "
     "\"faces\"",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"channels\":[{\"channel\":1,\"channel\":2}]}}", 77,
     "[s] line 3, column 63 | plugin \"p\", parameter \"channels\" | the key stands here twice", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"channels\":[{\"chanel\":1}]}}", 64,
     "[s] line 3, column 51 | plugin \"p\", parameter \"channels\" | expected \"channel\", \"vertices\" or \"faces\", "
     "found \"chanel\" (did you mean \"channel\"?)",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"channels\":[5]}}", 53,
     "[s] line 3, column 50 | plugin \"p\", parameter \"channels\" | expected a map channel, found 5", false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"lists\":[5]}}", 50,
     "[s] line 3, column 47 | plugin \"p\", parameter \"lists\" | expected a value with its type, as {\"0\":1}, or "
     "null, found 5",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"lists\":[{\"0\":\"a\"}]}}", 58,
     "[s] line 3, column 52 | plugin \"p\", parameter \"lists\" | expected an integer, found \"a\"", false},
    {"{\"type\":\"Every\",\"name\":\"\303\251\",\"params\":{\"string\":\"\303\251\303\251\303\251\",\"int\":"
     "\"\303\274\"}}",
     68, "[s] line 3, column 59 | plugin \"\303\251\", parameter \"int\" | expected an integer, found \"\303\274\"",
     false},
    {"{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"channels\":[]},\"rigid\":[\"channels\"]}", 73,
     "[s] line 3, column 49 | plugin \"p\", parameter \"channels\" | map channels cannot be rigid", false},
    {"{\"params\":{\"int\":\"a\"},\"type\":\"Every\",\"name\":\"p\"}", 48,
     "[s] line 3, column 18 | plugin \"p\", parameter \"int\" | expected an integer, found \"a\"", false},
    {"{\"params\":{\"int\":[1},\"type\":\"Every\",\"name\":\"p\"}", 47,
     "[s] line 3, column 48 | expected \",\" or \"}\", found the end of the line", false},
};

struct HeaderRow {
    const char* text;
    const char* error;
};

const HeaderRow HEADERS[] = {
    {"", "[s] line 1, column 1 | expected the header, as {\"kelmo-scene\":1}, found the end of the line"},
    {"{}", "[s] line 1, column 1 | the header must have the key \"kelmo-scene\""},
    {"{\"kelmo-scene\":2}", "[s] line 1, column 16 | expected the version of the format, 1, found 2"},
    {"{\"kelmo-scene\":\"1\"}", "[s] line 1, column 16 | expected the version of the format, 1, found \"1\""},
    {"{\"kelmo-scene\":1,\"up\":\"w\"}", "[s] line 1, column 23 | expected \"x\", \"y\" or \"z\", found \"w\""},
    {"{\"kelmo-scene\":1,\"unit\":\"m\"}", "[s] line 1, column 25 | expected a number of metres, found \"m\""},
    {"{\"kelmo-scene\":1,\"unit\":0}", "[s] line 1, column 25 | expected a number of metres above 0, found 0"},
    {"{\"kelmo-scene\":1,\"unit\":-0}", "[s] line 1, column 25 | expected a number of metres above 0, found -0"},
    {"{\"kelmo-scene\":1,\"unit\":-1}", "[s] line 1, column 25 | expected a number of metres above 0, found -1"},
    {"{\"kelmo-scene\":1,\"unit\":1e-400}",
     "[s] line 1, column 25 | expected a number of metres above 0, found 1e-400"},
    {"{\"kelmo-scene\":1,\"unit\": 1e500}",
     "[s] line 1, column 26 | expected a number that fits in 64 bits, found 1e500"},
    {"{\"kelmo-scene\":1,\"Unit\":1}",
     "[s] line 1, column 18 | the header has no key \"Unit\" (did you mean \"unit\"?)"},
    {"{\"kelmo-scene\":1,\"x\":1}", "[s] line 1, column 18 | the header has no key \"x\""},
    {"{\"kelmo-scene\":1,\"kelmo-scene\":1}", "[s] line 1, column 18 | the key stands here twice"},
    {"{\"type\":\"Every\"}", "[s] line 1, column 2 | the header has no key \"type\""},
    {"\357\273\277{\"kelmo-scene\":1}",
     "[s] line 1, column 1 | expected the header, as {\"kelmo-scene\":1}, found the byte 0xef"},
    {"{\"kelmo-scene\":1}\012\012",
     "[s] line 2, column 1 | expected a plugin, as {\"type\":...,\"name\":...}, found the end of the line"},
    {"{\"kelmo-scene\":1", "[s] line 1, column 17 | expected \",\" or \"}\", found the end of the line"},
};

const std::string STANDING = "{\"type\":\"Every\",\"name\":\"taken\"}\n";

const std::string GOOD =
    "{\"type\":\"Every\",\"name\":\"p\",\"node\":\"n\",\"params\":{\"string\":\"a\\u00e9\\n\",\"lists\":[{\"0\":1},"
    "null],"
    "\"channels\":[{\"channel\":1,\"vertices\":[[0,0,0]],\"faces\":[0]}],\"float\":-1.5e-3,\"plugins\":[\"p\",null]},"
    "\"rigid\":[\"float\"]}";

}  // namespace

TEST_CASE(everyDamageIsNamed) {
    for (const Row& row : LINES) {
        CHECK_ROW(row.line);
        TestScene scene;
        const std::string error = scene.readLines(STANDING + std::string(row.line, row.length) + "\n");
        CHECK_TEXT(error.c_str(), row.error);
        CHECK(scene.find("taken") != nullptr);
        CHECK_EQ(scene.find("p") != nullptr, row.carried);
    }
}

TEST_CASE(everyDamagedHeaderIsNamed) {
    for (const HeaderRow& row : HEADERS) {
        CHECK_ROW(row.text);
        TestScene scene;
        CHECK_TEXT(scene.read(row.text).c_str(), row.error);
        CHECK_EQ(scene.contents.count(), 0u);
    }
}

TEST_CASE(listsTooDeepAreRefused) {
    std::string deep = "{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"lists\":";
    for (int i = 0; i < 101; ++i) deep += "[{\"12\":";
    TestScene scene;
    CHECK_TEXT(
        scene.readLines(deep + "\n").c_str(),
        "[s] line 2, column 746 | plugin \"p\", parameter \"lists\" | lists stand in each other more than 100 deep");
}

TEST_CASE(aLineThatIsCutAnywhereIsDamaged) {
    for (std::size_t length = 0; length < GOOD.size(); ++length) {
        TestScene scene;
        const std::string error = scene.readLines(STANDING + GOOD.substr(0, length));
        // A file that ends with the line before is whole.
        CHECK_EQ(error.empty(), length == 0);
        CHECK(scene.find("taken") != nullptr);
        CHECK(scene.find("p") == nullptr);
    }
    TestScene whole;
    CHECK_TEXT(whole.readLines(STANDING + GOOD).c_str(), "");
}

TEST_CASE(changedBytesNeverLeakAndWhatIsReadCanBeSaved) {
    const Offline::Counters before = Offline::counters;
    int damaged = 0;
    for (std::size_t i = 0; i < GOOD.size(); ++i) {
        for (int byte = 0; byte < 256; ++byte) {
            if (byte == '\n') continue;
            std::string line = GOOD;
            line[i] = static_cast<char>(byte);
            TestScene scene;
            if (!scene.readLines(STANDING + line).empty()) {
                ++damaged;
                continue;
            }
            TestScene again;
            CHECK_TEXT(again.read(scene.text()).c_str(), "");
            CHECK_TEXT(again.text().c_str(), scene.text().c_str());
        }
    }
    CHECK(damaged > 10000);
    CHECK_EQ(Offline::counters.liveBlocks, before.liveBlocks);
    CHECK_EQ(Offline::counters.valuesFreed - before.valuesFreed, Offline::counters.valuesMade - before.valuesMade);
}

TEST_CASE(referencesAreSetBeforeTheDamage) {
    TestScene scene;
    CHECK_TEXT(scene
                   .readLines("{\"type\":\"Every\",\"name\":\"p\",\"params\":{\"plugin\":\"q\"}}\n"
                              "{\"type\":\"Every\",\"name\":\"q\"}\nx")
                   .c_str(),
               "[s] line 4, column 1 | expected a plugin, as {\"type\":...,\"name\":...}, found x");
    CHECK(scene.value("plugin")->getPlugin(0, 0.0, nullptr) != nullptr);
}

TEST_CASE(everyAllocationMayFail) {
    TestScene whole;
    CHECK_TEXT(whole.readLines(STANDING + GOOD).c_str(), "");
    const Offline::Counters before = Offline::counters;
    int named = 0;
    for (std::uint64_t nth = 1;; ++nth) {
        const std::uint64_t failed = Offline::counters.failedAllocations;
        TestScene scene;
        Offline::failAllocation(nth, false);
        const std::string error = scene.readLines(STANDING + GOOD);
        Offline::failAllocation(0, false);
        if (error.empty()) {
            // Nothing failed, or only an array that could not give back its spare room.
            CHECK_TEXT(scene.text().c_str(), whole.text().c_str());
            if (Offline::counters.failedAllocations == failed) break;
            continue;
        }
        ++named;
        CHECK(error.find("not enough memory") != std::string::npos);
        CHECK(scene.find("p") == nullptr);
    }
    CHECK(named > 10);
    CHECK_EQ(Offline::counters.liveBlocks, before.liveBlocks);
}
