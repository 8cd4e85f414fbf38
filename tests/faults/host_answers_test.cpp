// Hosts that answer null where something was asked for, plugins without a descriptor, a name or lists, and plugins that
// take no value.
#include "driver.h"
// The interpreter's header comes first.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "check.h"
#include "host/state.h"
#include "stub/stub_renderer.h"
#include "stub/stub_value.h"
#include "test_allocator.h"

using namespace faults;

namespace {

struct Row {
    const char* function;
    const char* arguments;
    const char* answer;  // the result's repr, or the exception's text
    bool warns = false;
    std::int64_t kept = 0;    // blocks that nobody frees
    std::uint32_t owned = 0;  // values that the host frees
};

// What the function answers in this world.
void checkAnswer(const Row& row, void (stub::World::*change)()) {
    const std::string label = std::string(row.function) + row.arguments;
    CHECK_ROW(label.c_str());
    const Counts before = countsNow();
    std::vector<KUtils::KelmoPluginParameter*> ownerless;
    {
        const Object arguments = python(row.arguments);
        stub::World world;
        const Object none(call("_init", arguments.get()));
        (world.*change)();
        stub::plan = stub::Plan();
        const Object result(call(row.function, arguments.get()));
        const Object shown(result.get() != nullptr ? PyObject_Repr(result.get()) : nullptr);
        const std::string answer = shown.get() != nullptr ? PyString_AsString(shown.get()) : takeErrorText();
        CHECK_TEXT(answer.c_str(), row.answer);
        CHECK(PyErr_Occurred() == nullptr);
        CHECK_EQ(!stub::plan.reached.empty() && stub::plan.reached.back() == "printWarning", row.warns);
        CHECK_EQ(world.ownedValues(), row.owned);
        if (row.kept != 0) ownerless = world.takenValues();
        const Object ended(call("_uninit", arguments.get()));
    }
    const Counts after = countsNow();
    CHECK_EQ(after.blocks - before.blocks, row.kept);
    for (KUtils::KelmoPluginParameter* value : ownerless) delete value;
    CHECK_EQ(countsNow().blocks, before.blocks);
    CHECK_EQ(test_allocator::counters().wrongFrees, 0);
    CHECK_EQ(after.none, before.none);
    CHECK_ROW(nullptr);
}

const char NO_THING[] = "The plugin \"thing\" doesn't exist.";
const char NO_INT[] = "A parameter with name \"int\" doesn't exist for plugin \"thing\".";

}  // namespace

TEST_CASE(noPlugins) {
    const Row rows[] = {
        {"_create", "('Thing', 'new')", "None", true},
        {"_delete", "('thing',)", NO_THING},
        {"_pluginExists", "('thing',)", "False"},
        {"_getPluginType", "('thing',)", NO_THING},
        {"_unique", "('thing',)", "False"},
        {"_findByName", "('*',)", "[]"},
        {"_findByType", "('*',)", "[]"},
        {"_getTypeParams", "('Nothing',)", "None", true},
        {"_getPluginParams", "('thing', 0)", NO_THING},
        {"_getPluginParams", "('thing', 1)", NO_THING},
        {"_getParamType", "('thing', 'int')", NO_THING},
        {"_isOutputParam", "('thing', 'int')", NO_THING},
        {"_paramExists", "('thing', 'int')", "False"},
        {"_getParam", "('thing', 'int')", NO_THING},
        {"_setParam", "('thing', 'int', (0, 5))", NO_THING},
        {"_exportTexture", "('thing',)", "None", true},
        {"_exportMaterial", "('thing',)", "None", true},
        {"_exportCamera", "('thing',)", "None", true},
        {"_exportNode", "('thing',)", "None", true},
        {"_addSceneContent", "(['good'], '')", "None"},
        {"_addSceneContent", "(['bad'], '')", "[stub] cannot be read"},
        {"_appendSceneContent", "(['bad'], '')", "[stub] cannot be read"},
        {"_duplicate", "('thing', 'new')", NO_THING},
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::answerNoPlugins);
}

TEST_CASE(pluginsWithoutADescriptor) {
    const Row rows[] = {
        {"_create", "('Thing', 'new')", "'new'"},
        {"_create", "('', 'new')", "'new'"},  // the type of the plugins that are there
        {"_delete", "('thing',)", "None"},
        {"_pluginExists", "('thing',)", "True"},
        {"_getPluginType", "('thing',)", "''"},
        {"_unique", "('thing',)", "False"},
        {"_findByName", "('*',)", "['thing', 'other']"},
        {"_findByType", "('*',)", "[]"},
        {"_getPluginParams", "('thing', 0)", "[]"},
        {"_getPluginParams", "('other', 1)", "[]"},
        {"_getParamType", "('thing', 'int')", NO_INT},
        {"_isOutputParam", "('thing', 'int')", NO_INT},
        {"_paramExists", "('thing', 'int')", "False"},
        {"_getParam", "('thing', 'int')", "(0, 1234567)"},
        {"_getParam", "('other', 'int')", "A parameter with name \"int\" doesn't exist for plugin \"other\"."},
        {"_setParam", "('thing', 'int', (0, 5))", NO_INT},
        {"_exportNode", "('thing',)", "'thing'"},
        {"_duplicate", "('thing', 'new')", "'other'", false, 0, 23},  // all but the list of bools
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::hideDescriptors);
}

// A host may take a file without a name; what the items are instead of texts is then nobody's error.
TEST_CASE(filesWithoutAName) {
    const Row rows[] = {
        {"_addSceneContent", "([5, None, u'\\xe9', 'good'], '')", "None"},
        {"_appendSceneContent", "(['good', (), 1.5], 'text')", "None"},
        {"_addSceneContent", "([5, 'bad'], '')", "[stub] cannot be read"},
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::hideDescriptors);
}

// The plugin that a texture is to come from has no descriptor, the one that takes it has.
TEST_CASE(anOutputWithoutADescriptor) {
    checkAnswer({"_setParam", "('thing', 'texture', (1000, ('other', 'out')))",
                 "A parameter with name \"out\" doesn't exist for plugin \"other\"."},
                &stub::World::hideOthersDescriptor);
    checkAnswer({"_setParam", "('thing', 'texture', (10, 'other'))", "None", false, 0, 1},
                &stub::World::hideOthersDescriptor);
}

TEST_CASE(aHostWithoutAPluginManager) {
    const Row rows[] = {
        {"_create", "('Thing', 'new')", "'new'"}, {"_findByName", "('*',)", "[]"},
        {"_findByType", "('*',)", "[]"},          {"_getTypeParams", "('Thing',)", "None", true},
        {"_pluginExists", "('thing',)", "True"},  {"_addSceneContent", "(['good'], '')", "None"},
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::takePluginManager);
}

// Nobody owns a value that finds no set: it lives as long as the plugin wants it.
TEST_CASE(aHostWithoutASet) {
    const Row rows[] = {
        {"_setParam", "('thing', 'int', (0, 5))", "None", false, 2},
        {"_setParam", "('extra', 'int', (0, 5))", "None", false, 2},
        {"_setParam", "('thing', 'int', (9, 'text'))",
         "Invalid value given for parameter \\\"int\\\" in plugin \\\"thing\\\"."},
        {"_duplicate", "('extra', 'new')", "'other'", false, 1},
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::takeOwnedValues);
}

TEST_CASE(aPluginWithoutAName) {
    const Row rows[] = {
        {"_findByName", "('*',)", "['thing', '']"},
        {"_findByType", "('*',)", "['thing', '']"},
        {"_getParam", "('thing', 'plugin')", "(10, '')"},
        {"_getParam", "('thing', 'plugins')", "(10, ['', ''])"},
        {"_duplicate", "('extra', 'new')", "''", false, 0, 1},
        {"_create", "('Thing', 'new')", "'new'"},
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::takeOthersName);
}

TEST_CASE(pluginsWithoutLists) {
    const Row rows[] = {
        {"_getPluginParams", "('thing', 0)", "[]"},
        {"_getPluginParams", "('thing', 1)", "[]"},
        {"_getTypeParams", "('Thing',)", "[]"},
        {"_getParamType", "('thing', 'int')", NO_INT},
        {"_isOutputParam", "('thing', 'int')", NO_INT},
        {"_paramExists", "('thing', 'int')", "False"},
        {"_getParam", "('thing', 'int')", "(0, 1234567)"},
        {"_getParam", "('other', 'int')", "A parameter with name \"int\" doesn't exist for plugin \"other\"."},
        {"_setParam", "('thing', 'int', (0, 5))", NO_INT},
        {"_duplicate", "('thing', 'new')", "'other'"},
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::takeLists);
}

TEST_CASE(nullsInLists) {
    const Row rows[] = {
        {"_getPluginParams", "('extra', 0)", "['', 'float']"},
        {"_getPluginParams", "('extra', 1)", "['int']"},
        {"_getTypeParams", "('Thing',)", "['', 'float']"},
        {"_getParamType", "('thing', 'float')", "(1L, False)"},
        {"_getParamType", "('thing', 'int')", NO_INT},
        {"_paramExists", "('thing', '')", "False"},
        {"_setParam", "('thing', 'int', (0, 5))", NO_INT},
        {"_duplicate", "('extra', 'new')", "'other'", false, 0, 1},
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::beginListsWithNulls);
}

// A clone that could not be made is left out; the others follow.
TEST_CASE(valuesThatCannotBeCloned) {
    const std::size_t carried = stub::carriedValues().size();
    const auto cloneable = static_cast<std::size_t>(std::count_if(
        stub::carriedValues().begin(), stub::carriedValues().end(), [](const stub::Carried& c) { return c.clones; }));
    const std::uint32_t refusedByTheModule = 1;  // the list of bools
    checkAnswer({"_duplicate", "('extra', 'new')", "'other'"}, &stub::World::answerNoClones);
    checkAnswer({"_duplicate", "('thing', 'new')", "'other'", false, 0,
                 static_cast<std::uint32_t>(carried - cloneable) - refusedByTheModule},
                &stub::World::answerNoClones);
}

// A value that is refused is destroyed at once, a copy stays the host's.
TEST_CASE(pluginsThatTakeNoValue) {
    const Row rows[] = {
        {"_setParam", "('thing', 'int', (0, 5))",
         "The parameter \\\"int\\\" couldn't be set for plugin \\\"thing\\\"."},
        {"_setParam", "('extra', 'int', (0, 5))",
         "The parameter \\\"int\\\" couldn't be set for plugin \\\"extra\\\"."},
        {"_setParam", "('other', 'strings', (9, [(9, 'some text'), (9, 'more')]))",
         "The parameter \\\"strings\\\" couldn't be set for plugin \\\"other\\\"."},
        {"_setParam", "('thing', 'ints', (0, [(0, 'x'), 6]))",
         "The parameter \\\"ints\\\" couldn't be set for plugin \\\"thing\\\"."},
        {"_duplicate", "('extra', 'new')", "'other'", false, 0, 1},
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::refuseValues);
}

// The names of so many values need a second array, which may not be had when the first is full.
TEST_CASE(namesWithoutMemoryForMore) {
    struct Refusal {
        const char* label;
        std::int64_t nth;  // the array that is refused
        bool fromThenOn;
        Py_ssize_t names;
    };
    const Refusal refusals[] = {
        {"none", 0, false, 151},
        {"the first, once", 1, false, 150},
        {"the first and all that follow", 1, true, 0},
        {"the second, once", 2, false, 150},
        {"the second and all that follow", 2, true, 100},
    };
    for (const Refusal& row : refusals) {
        CHECK_ROW(row.label);
        const Counts before = countsNow();
        {
            const Object arguments = python("('extra', 1)");
            stub::World world;
            world.carryMany(150);  // beside its own
            const Object none(call("_init", arguments.get()));
            if (row.nth != 0) test_allocator::refuse(row.nth, row.fromThenOn);
            const Object names(call("_getPluginParams", arguments.get()));
            test_allocator::reset();
            CHECK(names.get() != nullptr);
            CHECK_EQ(names.get() != nullptr ? PyList_Size(names.get()) : -1, row.names);
            const Object ended(call("_uninit", arguments.get()));
        }
        CHECK_EQ(countsNow().blocks, before.blocks);
        CHECK_EQ(test_allocator::counters().wrongFrees, 0);
    }
}

// The record of the state is filled field by field: what nobody sets stays as the heap gave it.
TEST_CASE(theReservedFieldOfTheState) {
    const Object arguments = python("()");
    stub::World world;
    const Object none(call("_init", arguments.get()));
    unsigned char bytes[sizeof(void*)];
    std::memcpy(bytes, &KUtils::Python::sceneAccessState->reserved, sizeof bytes);
    for (const unsigned char byte : bytes) CHECK_EQ(byte, 0xCD);
    CHECK(KUtils::Python::sceneAccessState->mainScene == nullptr);
    CHECK(KUtils::Python::sceneAccessState->fallbackOwnedParams == nullptr);
    const Object ended(call("_uninit", arguments.get()));
}
