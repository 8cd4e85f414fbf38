// Hosts that answer no plugin where one was asked for, and plugins without a descriptor.
#include "driver.h"
// The interpreter's header comes first.
#include <string>

#include "check.h"
#include "stub_renderer.h"
#include "test_allocator.h"

using namespace faults;

namespace {

struct Row {
    const char* function;
    const char* arguments;
    const char* answer;  // the result's repr, or the exception's text
    bool warns = false;
};

// What the function answers in this world.
void checkAnswer(const Row& row, void (stub::World::*change)()) {
    const std::string label = std::string(row.function) + row.arguments;
    CHECK_ROW(label.c_str());
    const Counts before = countsNow();
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
        const Object ended(call("_uninit", arguments.get()));
    }
    const Counts after = countsNow();
    CHECK_EQ(after.blocks, before.blocks);
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
        {"_duplicate", "('thing', 'new')", "'other'"},
    };
    for (const Row& row : rows) checkAnswer(row, &stub::World::hideDescriptors);
}

// The plugin that a texture is to come from has no descriptor, the one that takes it has.
TEST_CASE(anOutputWithoutADescriptor) {
    checkAnswer({"_setParam", "('thing', 'texture', (1000, ('other', 'out')))",
                 "A parameter with name \"out\" doesn't exist for plugin \"other\"."},
                &stub::World::hideOthersDescriptor);
    checkAnswer({"_setParam", "('thing', 'texture', (10, 'other'))", "None"}, &stub::World::hideOthersDescriptor);
}
