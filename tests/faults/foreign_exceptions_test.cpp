// Exceptions that the module does not know, raised in turn by every operation that it calls, and the core's own that
// the module itself raises: they pass through it as they are, and leave nothing behind. Only a driver in C++ can tell,
// because such an exception must not cross the interpreter.
#include <algorithm>
#include <set>
#include <string>

#include "check.h"
#include "driver.h"
#include "kelmo/core/exception_msg.h"
#include "stub/stub_renderer.h"
#include "stub/stub_value.h"
#include "test_allocator.h"

using namespace faults;

namespace {

// A call, as a function's name and its arguments in Python. `swallows`: it answers False, whatever is raised.
struct Row {
    const char* function;
    const char* arguments;
    bool swallows = false;
};

const Row rows[] = {
    {"_init", "()"},
    {"_uninit", "()"},
    {"_create", "('Thing', 'new')"},
    {"_create", "('Thing', 'thing')"},
    {"_delete", "('thing',)"},
    {"_delete", "('extra',)"},
    {"_pluginExists", "('extra',)", true},
    {"_getPluginType", "('thing',)"},
    {"_unique", "('thing',)", true},
    {"_findByName", "('*',)"},
    {"_findByType", "('Thin?',)"},
    {"_getTypeParams", "('Thing',)"},
    {"_getTypeParams", "('Nothing',)"},
    {"_getPluginParams", "('thing', 0)"},
    {"_getPluginParams", "('thing', 1)"},
    {"_getParamType", "('thing', 'ints')"},
    {"_isOutputParam", "('extra', 'out')"},
    {"_paramExists", "('thing', 'int')", true},
    {"_getParam", "('thing', 'given')"},
    {"_setParam", "('thing', 'int', (0, 5))"},
    {"_setParam", "('extra', 'int', (0, 5))"},
    {"_setParam", "('thing', 'string', (9, 'some text'))"},
    {"_setParam", "('thing', 'ints', (0, [(0, 5), (0, 6)]))"},
    {"_setParam", "('thing', 'ints', (0, [(0, 'x'), 6]))"},
    {"_setParam", "('thing', 'plugin', (10, 'other'))"},
    {"_setParam", "('thing', 'texture', (10, 'extra'))"},
    {"_setParam", "('thing', 'texture', (1000, ('other', 'out')))"},
    {"_setParam", "('thing', 'plugins', (10, [(10, 'other'), (1000, ('extra', 'out'))]))"},
    {"_setParam", "('thing', 'anys', (12, [(0, 5), (12, [(10, 'other'), (9, 'some text')])]))"},
    {"_exportTexture", "('thing',)"},
    {"_exportTexture", "('nobody',)"},
    {"_exportMaterial", "('thing',)"},
    {"_exportCamera", "('thing',)"},
    {"_exportNode", "('thing',)"},
    {"_addSceneContent", "(['good', 'good'], '')"},
    {"_addSceneContent", "(['bad'], 'text')"},
    {"_addSceneContent", "([5, None], '')"},
    {"_appendSceneContent", "(['good', u'good'], '')"},
    {"_duplicate", "('thing', 'copy')"},
    {"_duplicate", "('extra', 'thing')"},
};

// What a call that was to raise did.
enum class Outcome { Returned, RaisedTheSame, RaisedAnother };

Outcome attempt(const char* function, PyObject* arguments, PyObject*& result) {
    result = nullptr;
    try {
        result = call(function, arguments);
        return Outcome::Returned;
    } catch (const stub::Foreign& caught) {
        return &caught == stub::Foreign::thrown && stub::Foreign::copies == 0 ? Outcome::RaisedTheSame
                                                                              : Outcome::RaisedAnother;
    } catch (const KUtils::ExceptionMsg& caught) {
        return std::string(caught.getMessage()) == stub::MESSAGE ? Outcome::RaisedTheSame : Outcome::RaisedAnother;
    } catch (int caught) {
        return caught == stub::NUMBER ? Outcome::RaisedTheSame : Outcome::RaisedAnother;
    }
}

// How many names a search has found, and keeps a reference to, when it has reached these operations and the last of
// them has raised or not.
std::int64_t namesFound(const std::string& function, const std::vector<std::string>& reached, bool raised) {
    const bool byType = function == "_findByType";
    if (!byType && function != "_findByName") return 0;
    const std::string each = byType ? "descriptor.getTypeName" : "manager.enumPlugins, at its end";
    std::int64_t found = std::count(reached.begin(), reached.end(), each);
    if (!byType) return 2 * found;
    if (raised && reached.back() == each) --found;
    return found;
}

// One call in a world of its own, in which the operation number `raiseAt` raises; what it reached before.
std::vector<std::string> runOnce(const char* function, const char* argumentText, bool swallows, std::size_t raiseAt,
                                 stub::Kind kind, bool counted = true) {
    std::vector<std::string> reached;
    test_allocator::reset();
    const Counts before = countsNow();
    {
        const Object arguments = python(argumentText);
        stub::World world;
        const bool starts = std::string(function) == "_init";
        if (!starts) CHECK(Object(call("_init", arguments.get())).get() == Py_None);
        stub::plan = stub::Plan();
        stub::plan.raiseAt = raiseAt;
        stub::plan.kind = kind;

        PyObject* result = nullptr;
        const Outcome outcome = attempt(function, arguments.get(), result);
        reached = stub::plan.reached;
        stub::plan.raiseAt = 0;
        const Object held(result);
        if (raiseAt == 0) {
            CHECK(outcome == Outcome::Returned);
        } else if (swallows) {
            CHECK(outcome == Outcome::Returned && result == Py_False);
        } else {
            CHECK(outcome == Outcome::RaisedTheSame);
        }
        CHECK_EQ(PyErr_Occurred() != nullptr, raiseAt == 0 && result == nullptr);
        PyErr_Clear();
        // One that was raised while a level was closed has closed none.
        const bool isClosing = raiseAt != 0 && reached[raiseAt - 1] == "value.closeList";
        CHECK_EQ(world.openLevels(), isClosing ? 1 : 0);

        // The module goes on where it was; a start that failed is none.
        const Object again = python("('thing',)");
        if (starts && raiseAt != 0) {
            CHECK(call("_getPluginType", again.get()) == nullptr);
            CHECK(takeErrorText().find("wasn't initialized properly") != std::string::npos);
        } else if (std::string(function) != "_uninit") {
            const Object type(call("_getPluginType", again.get()));
            CHECK_TEXT(type.get() != nullptr ? PyString_AsString(type.get()) : nullptr, "Thing");
            CHECK_EQ(world.loads(), 1);
        }
        const Object none(call("_uninit", arguments.get()));
        // The exception's type may be that of a library that had only just been loaded: it stays.
        CHECK_EQ(world.loads(), starts && raiseAt != 0 ? 1 : 0);
    }
    const Counts after = countsNow();
    CHECK_EQ(after.blocks, before.blocks);
    CHECK_EQ(test_allocator::counters().wrongFrees, 0);
    CHECK_EQ(after.none, before.none);
    CHECK_EQ(after.recursion, before.recursion);
    if (counted && countsAllReferences()) CHECK_EQ(after.all - before.all, namesFound(function, reached, raiseAt != 0));
    return reached;
}

std::set<std::string>& everReached() {
    static std::set<std::string> operations;
    return operations;
}

void raiseAtEach(const char* function, const char* arguments, bool swallows) {
    const std::string label = std::string(function) + arguments;
    CHECK_ROW(label.c_str());
    // The first call makes what the interpreter keeps.
    runOnce(function, arguments, swallows, 0, stub::Kind::Foreign, false);
    const std::vector<std::string> reached = runOnce(function, arguments, swallows, 0, stub::Kind::Foreign);
    for (std::size_t i = 0; i < reached.size(); ++i) {
        const std::string at = label + ", raised by " + reached[i];
        CHECK_ROW(at.c_str());
        everReached().insert(reached[i]);
        for (const stub::Kind kind : {stub::Kind::Foreign, stub::Kind::CoreMessage, stub::Kind::Number}) {
            runOnce(function, arguments, swallows, i + 1, kind);
        }
    }
    CHECK_ROW(nullptr);
}

}  // namespace

TEST_CASE(everyOperationOfTheHost) {
    for (const Row& row : rows) raiseAtEach(row.function, row.arguments, row.swallows);
    for (const stub::Carried& carried : stub::carriedValues()) {
        raiseAtEach("_getParam", ("('thing', '" + std::string(carried.name) + "')").c_str(), false);
    }

    // None was left out but those of the state without a host manager, which nobody can reach.
    const std::set<std::string> all = {"descriptor.getTypeName",
                                       "export",
                                       "getPluginManager",
                                       "getScenes",
                                       "host.beginScriptAccess",
                                       "host.createPlugin",
                                       "host.deletePlugin",
                                       "host.endScriptAccess",
                                       "host.findPlugin",
                                       "list.enumParams",
                                       "manager.enumPlugins",
                                       "manager.enumPlugins, at its end",
                                       "manager.getPluginDescriptor",
                                       "plugin.getInterface",
                                       "plugin.getParameter",
                                       "plugin.getPluginDescriptor",
                                       "plugin.setParameter",
                                       "printWarning",
                                       "scene.KelmoScene",
                                       "scene.attachParameter",
                                       "scene.deletePlugin",
                                       "scene.findPlugin",
                                       "scene.readFile",
                                       "value.clone",
                                       "value.closeList",
                                       "value.getAColor",
                                       "value.getBool",
                                       "value.getColor",
                                       "value.getColorList",
                                       "value.getCount",
                                       "value.getDouble",
                                       "value.getFloat",
                                       "value.getFloatList",
                                       "value.getInt",
                                       "value.getIntList",
                                       "value.getInterface",
                                       "value.getMatrix",
                                       "value.getName",
                                       "value.getPlugin",
                                       "value.getString",
                                       "value.getTransform",
                                       "value.getType",
                                       "value.getVector",
                                       "value.getVectorList",
                                       "value.openListImpl"};
    for (const std::string& operation : all) {
        CHECK_ROW(operation.c_str());
        CHECK_EQ(everReached().count(operation), std::size_t{1});
    }
    CHECK_EQ(everReached().size(), all.size());
}

// The one that the module raises itself.
TEST_CASE(aSceneThatFindsNoNode) {
    struct Block {
        const char* label;
        std::int32_t size;     // slots of a new block
        std::int64_t refusal;  // the allocation that is refused: the scene, the block's record, its slots; 0: none
        bool isRaised;
    };
    const Block blocks[] = {
        {"no memory for the scene", 4, 1, false}, {"none for the record", 4, 2, true},
        {"none for the slots", 4, 3, true},       {"blocks of no slots", 0, 0, true},
        {"blocks of fewer", -5, 0, true},         {"enough", 4, 0, false},
    };
    for (const Block& row : blocks) {
        CHECK_ROW(row.label);
        const Counts before = countsNow();
        std::string raised;
        {
            const Object arguments = python("(['good'], '')");
            stub::World world;
            const Object none(call("_init", arguments.get()));
            world.setBlockSize(row.size);
            const std::int64_t started = test_allocator::counters().live;
            if (row.refusal != 0) test_allocator::refuse(row.refusal, false);
            PyObject* result = nullptr;
            try {
                result = call("_addSceneContent", arguments.get());
            } catch (const KUtils::ExceptionMsg& caught) {
                raised = caught.getMessage();
            }
            test_allocator::reset();
            if (row.isRaised) {
                // All that is kept is the scene, of which nobody knows any more.
                CHECK_EQ(test_allocator::counters().live - started, 1);
                world.freeNewestScene();
            }
            const Object held(result);
            CHECK_EQ(result == Py_None, !row.isRaised);
            CHECK(PyErr_Occurred() == nullptr);
            // The list is as it was, and can be used again.
            world.setBlockSize(4);
            const Object again(call("_addSceneContent", arguments.get()));
            CHECK(again.get() == Py_None);
            const Object ended(call("_uninit", arguments.get()));
        }
        CHECK_TEXT(raised.c_str(), row.isRaised ? "[_SequenceBlock] Could not allocate memory" : "");
        const Counts after = countsNow();
        CHECK_EQ(after.blocks, before.blocks);
        CHECK_EQ(after.none, before.none);
        CHECK_EQ(test_allocator::counters().wrongFrees, 0);
    }
}
