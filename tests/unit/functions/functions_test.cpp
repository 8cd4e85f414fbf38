// The module's functions through their call frame, over a state that has a main scene and no host manager, and what
// passes the frame untouched.
#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>

#include "check.h"
#include "frame/method.h"
#include "frame/numbers.h"
#include "frame/translate_problem.h"
#include "kelmo/core/exception_msg.h"
#include "main_scene.h"
#include "param/declaration/introspection.h"
#include "param/setting/set_param.h"
#include "params/scalar/scalar_params.h"
#include "pointer_set/owned_values.h"
#include "scene/duplicate.h"
#include "scene/import.h"
#include "scene/lifecycle.h"
#include "scene/search/search.h"

using namespace KUtils;
using namespace KUtils::Python;

namespace {

constexpr char NAME[] = "function";

std::string answers;  // of the callback to the last enumeration of a plugin's values

KelmoScene* newestScene = nullptr;

PyCFunction const createFunction = method<NAME, create>;
PyCFunction const deleteFunction = method<NAME, deletePlugin>;
PyCFunction const duplicateFunction = method<NAME, duplicate>;
PyCFunction const setParamFunction = method<NAME, setParam>;
PyCFunction const addSceneContentFunction = method<NAME, addSceneContent>;
PyCFunction const appendSceneContentFunction = method<NAME, appendSceneContent>;

// Says that it can clone itself, and never does.
class NeverCloned final : public ScalarParam<float> {
  public:
    using ElementAccess::ElementAccess;
    KelmoPluginParameter* clone() override { return nullptr; }
};

}  // namespace

// Stand in for the core's: a scene that no list takes is found again; and the lists of this test are not the core's
// own.
KelmoScene::KelmoScene(PluginManager*, Parser*, int) : reserved8(nullptr), reserved16(nullptr), reserved24(nullptr) {
    newestScene = this;
}

void KelmoParameterList::enumParams(EnumParamsCallback* callback) {
    answers = std::to_string(callback->process(nullptr));  // is passed over
    answers += std::to_string(callback->process(&static_cast<OneValue*>(this)->value));
}

TEST_CASE(creatingInTheMainScene) {
    NoManager host;
    CarryingPlugin made("Light", "made");
    host.scene.made = &made;
    CHECK_TEXT(host.call(createFunction, "('Light', 'new')").c_str(), "find:new new:Light:new:0 -> 'new'");
    CHECK_TEXT(host.call(createFunction, "('Mesh', 'taken')").c_str(),
               "find:taken -> Exception: A plugin \\\"taken\\\" already exists.");
    host.scene.made = nullptr;
    CHECK_TEXT(host.call(createFunction, "('Light', 'new')").c_str(),
               "find:new new:Light:new:0 -> Exception: A plugin \\\"new\\\" of type \\\"Light\\\" could not be "
               "created.");
    host.state.mainScene = nullptr;
    CHECK_TEXT(host.call(createFunction, "('Light', 'new')").c_str(),
               "-> Exception: A plugin \\\"new\\\" of type \\\"Light\\\" could not be created.");
}

TEST_CASE(deletingInTheMainScene) {
    NoManager host;
    CHECK_TEXT(host.call(deleteFunction, "('taken',)").c_str(), "find:taken delete:taken:true -> None");
    CHECK_TEXT(host.call(deleteFunction, "('none',)").c_str(),
               "find:none -> Exception: The plugin \"none\" doesn't exist.");
}

TEST_CASE(aPluginWithoutADescriptor) {
    NoManager host;
    CHECK_TEXT(host.call(method<NAME, getPluginType>, "('typeless',)").c_str(), "find:typeless -> ''");
    CHECK_TEXT(host.call(method<NAME, findByType>, "('*',)").c_str(), "-> ['taken']");
    CHECK_TEXT(host.call(method<NAME, findByName>, "('*',)").c_str(), "-> ['taken', 'typeless']");
    CHECK_TEXT(host.call(duplicateFunction, "('typeless', 'new')").c_str(),
               "find:typeless find:new new::new:0 -> Exception: A plugin \"new\" of type \"\" could not be created.");
}

TEST_CASE(settingWithAndWithoutTheFallbackSet) {
    NoManager host;
    CHECK_TEXT(host.call(setParamFunction, "('taken', 'strength', (1, 0.5))").c_str(), "find:taken -> None");
    const std::unique_ptr<KelmoPluginParameter> first(host.taken.carried);
    PointerSet set{};
    set.growLoad = 0.75f;
    host.state.fallbackOwnedParams = &set;
    CHECK_TEXT(host.call(setParamFunction, "('taken', 'strength', (1, 0.25))").c_str(), "find:taken -> None");
    CHECK(host.taken.carried != first.get());
    CHECK_EQ(set.count, 1u);
    CHECK(destroyOwnedValue(&set, host.taken.carried));
    kelmo_free(set.entries, set.capacity * POINTER_SET_ENTRY_BYTES);
}

TEST_CASE(aCopyIsTheHostsBeforeThePluginIsAsked) {
    for (const bool takes : {true, false}) {
        CHECK_ROW(takes ? "taken" : "refused");
        NoManager host;
        PointerSet set{};
        set.growLoad = 0.75f;
        host.state.fallbackOwnedParams = &set;
        DefFloatParam value("strength", 0.5f, false);
        OneValue values(value);
        host.taken.paramList = &values;
        CarryingPlugin made("Light", "made");
        made.takes = takes;
        made.owned = &set;
        host.scene.made = &made;
        CHECK_TEXT(host.call(duplicateFunction, "('taken', 'made')").c_str(),
                   "find:taken find:made new:Light:made:0 -> 'made'");
        CHECK_EQ(made.ownedWhenGiven, 1);
        CHECK_EQ(set.count, 1u);  // a refused copy stays the host's
        CHECK(destroyOwnedValue(&set, made.offered));
        kelmo_free(set.entries, set.capacity * POINTER_SET_ENTRY_BYTES);
    }
}

TEST_CASE(aPluginWithoutValuesIsDuplicated) {
    NoManager host;
    CarryingPlugin made("Light", "made");
    host.scene.made = &made;
    CHECK_TEXT(host.call(duplicateFunction, "('taken', 'made')").c_str(),
               "find:taken find:made new:Light:made:0 -> 'made'");
    CHECK(made.offered == nullptr);
}

// It is not cloned by another road either.
TEST_CASE(aValueThatDoesNotCloneItselfAfterAll) {
    NoManager host;
    NeverCloned value("strength", 0.5f, false);
    OneValue values(value);
    host.taken.paramList = &values;
    CarryingPlugin made("Light", "made");
    host.scene.made = &made;
    CHECK_TEXT(host.call(duplicateFunction, "('taken', 'made')").c_str(),
               "find:taken find:made new:Light:made:0 -> 'made'");
    CHECK(made.offered == nullptr);
}

// A manager that lists a plugin which it does not have.
TEST_CASE(nothingAmongThePlugins) {
    NoManager host;
    CarryingPlugin made("Light", "made");
    host.scene.made = &made;
    host.taken.isSingle = true;
    host.scene.manager.plugins = {nullptr, &host.taken};
    CHECK_TEXT(host.call(method<NAME, findByName>, "('*',)").c_str(), "-> ['taken']");
    CHECK_TEXT(host.call(method<NAME, findByType>, "('*',)").c_str(), "-> ['taken']");
    CHECK_TEXT(host.call(createFunction, "('Light', 'new')").c_str(),
               "-> Exception: Only one instance of type \\\"Light\\\" can exist.");
}

TEST_CASE(aPluginWithoutAName) {
    NoManager host;
    host.typeless.name = nullptr;
    CHECK_TEXT(host.call(method<NAME, findByName>, "('*',)").c_str(), "-> ['taken', '']");
    CHECK_TEXT(host.call(method<NAME, findByName>, "('',)").c_str(), "-> ['']");
    CHECK_TEXT(host.call(method<NAME, findByName>, "('?*',)").c_str(), "-> ['taken']");
    host.taken.name = nullptr;
    CHECK_TEXT(host.call(method<NAME, findByType>, "('Light',)").c_str(), "-> ['']");
}

TEST_CASE(aFileListThatChangesWhileItIsRead) {
    // Texts that only the list holds.
    const char* const arguments = "([name + '.kscene' for name in ('one', 'two', 'three')], '')";
    struct Row {
        const char* label;
        void (*change)(PyObject* files);
        const char* calls;
    };
    const Row rows[] = {
        {"unchanged", [](PyObject*) {}, "read:one.kscene read:two.kscene read:three.kscene "},
        {"shorter", [](PyObject* files) { PyList_SetSlice(files, 2, 3, nullptr); }, "read:one.kscene read:two.kscene "},
        {"empty, its texts overwritten",
         [](PyObject* files) {
             PyList_SetSlice(files, 0, 3, nullptr);
             PyRef others[3];
             for (PyRef& other : others) other = PyRef::steal(PyString_FromString("???.kscene"));
         },
         "read:one.kscene "},
        {"longer",
         [](PyObject* files) {
             if (PyList_Size(files) < 5) PyList_Append(files, PyList_GetItem(files, 0));
         },
         "read:one.kscene read:two.kscene read:three.kscene read:one.kscene read:one.kscene "},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        NoManager host;
        SceneNode node{&host.scene, nullptr};
        host.list.head = &node;
        host.list.count = 1;
        const PyRef args = python(arguments);
        host.scene.whenReading = [&] { row.change(PyTuple_GetItem(args.get(), 0)); };
        CHECK_TEXT(host.call(appendSceneContentFunction, args.get()).c_str(),
                   (row.calls + std::string("-> None")).c_str());
    }
}

TEST_CASE(namesOfWhatAPluginCarries) {
    NoManager host;
    DefFloatParam value("strength", 0.5f, false), nameless(nullptr, 0.5f, false);
    OneValue values(value), namelessValues(nameless);
    const PyCFunction names = method<NAME, getPluginParams>;
    CHECK_TEXT(host.call(names, "('taken', 1)").c_str(), "find:taken -> []");
    host.taken.paramList = &values;
    CHECK_TEXT(host.call(names, "('taken', 1)").c_str(), "find:taken -> ['strength']");
    CHECK_TEXT(answers.c_str(), "11");  // goes on in either case
    host.taken.paramList = &namelessValues;
    CHECK_TEXT(host.call(names, "('taken', 1)").c_str(), "find:taken -> ['']");
    CHECK_TEXT(host.call(names, "('taken', 0)").c_str(), "find:taken -> ['strength']");
    host.typeless.descriptor = nullptr;
    CHECK_TEXT(host.call(names, "('typeless', 0)").c_str(), "find:typeless -> []");
}

TEST_CASE(withoutAnyMainScene) {
    NoManager host;
    host.state.mainScene = nullptr;
    CHECK_TEXT(host.call(method<NAME, findByName>, "('*',)").c_str(), "-> []");
    CHECK_TEXT(host.call(method<NAME, findByType>, "('*',)").c_str(), "-> []");
    CHECK_TEXT(host.call(method<NAME, getTypeParams>, "('Light',)").c_str(),
               "-> Exception: \\\"Light\\\" is not a valid plugin type.");
}

namespace {

// A plugin of an extra scene which takes that scene away when it is given a value.
class LeavingPlugin final : public StubPlugin {
  public:
    explicit LeavingPlugin(SceneList& scenes) : StubPlugin("Light"), list(scenes) {
        name = "leaving";
        descriptor = &type;
        type.declare("strength", PARAM_FLOAT);
    }
    int setParameter(KelmoPluginParameter* param) override {
        taken.reset(param);
        if (leaves) list.head = nullptr;
        return 1;
    }
    KelmoPluginParameter* getParameter(const char*) override { return &old; }

    bool leaves = true;

  private:
    SceneList& list;
    DefFloatParam old{"strength", 0.5f, false};
    std::unique_ptr<KelmoPluginParameter> taken;
};

class ExtraScene final : public KelmoScene {
  public:
    ExtraScene() : KelmoScene(nullptr, nullptr, 0) {}
    Plugin* findPlugin(const char* name) override { return std::string(name) == plugin->name ? plugin : nullptr; }
    void attachParameter(KelmoPluginParameter*) override { ++attached; }

    Plugin* plugin = nullptr;
    int attached = 0;
};

}  // namespace

TEST_CASE(aSceneThatIsGoneIsGivenNoValue) {
    for (const bool leaves : {true, false}) {
        CHECK_ROW(leaves ? "gone" : "there");
        NoManager host;
        ExtraScene scene;
        LeavingPlugin plugin(host.list);
        plugin.leaves = leaves;
        scene.plugin = &plugin;
        SceneNode node{&scene, nullptr};
        host.list.head = &node;
        host.list.count = 1;
        CHECK_TEXT(host.call(setParamFunction, "('leaving', 'strength', (1, 0.5))").c_str(), "find:leaving -> None");
        CHECK_EQ(scene.attached, leaves ? 0 : 1);
    }
}

TEST_CASE(aWarningWithoutAHostIsAnException) {
    SceneAccessProblem problem{};
    problem.warning = 1;
    std::snprintf(problem.message, sizeof problem.message, "nobody prints this");
    CHECK(sceneAccessState == nullptr);
    CHECK(translateProblem(problem) == nullptr);
    CHECK(PyErr_ExceptionMatches(PyExc_Exception));
    PyErr_Clear();
}

TEST_CASE(appendingGoesByTheListsCount) {
    NoManager host;
    host.list.count = 1;  // although there is no node
    CHECK_TEXT(host.call(appendSceneContentFunction, "(['any.kscene'], '')").c_str(), "-> None");
    CHECK_EQ(host.list.count, 1);
    CHECK(host.list.head == nullptr);
}

TEST_CASE(pythonIntsHave32Bits) {
    struct Row {
        const char* expression;
        std::int32_t value;
        PyObject* error;
    };
    const Row rows[] = {
        {"0", 0, nullptr},
        {"-1", -1, nullptr},
        {"True", 1, nullptr},
        {"2.75", 2, nullptr},
        {"2147483647", INT32_MAX, nullptr},
        {"2147483647L", INT32_MAX, nullptr},
        {"-2147483648", INT32_MIN, nullptr},
        {"2147483648", -1, PyExc_OverflowError},
        {"-2147483649", -1, PyExc_OverflowError},
        {"4294967296", -1, PyExc_OverflowError},
        {"10 ** 40", -1, PyExc_OverflowError},
        {"'5'", -1, PyExc_TypeError},
        {"None", -1, PyExc_TypeError},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.expression);
        CHECK_EQ(asInt32(python(row.expression).get()), row.value);
        CHECK(row.error != nullptr ? PyErr_ExceptionMatches(row.error) != 0 : PyErr_Occurred() == nullptr);
        PyErr_Clear();
    }
}

// An incomplete list would be taken for the whole.
TEST_CASE(aSearchThatLacksAName) {
    NoManager host;
    host.scene.manager.atTheEnd = [] { PyErr_SetString(PyExc_MemoryError, "no memory for a name"); };
    CHECK_TEXT(host.call(method<NAME, findByName>, "('*',)").c_str(), "-> MemoryError: no memory for a name");
    CHECK_TEXT(host.call(method<NAME, findByType>, "('*',)").c_str(), "-> MemoryError: no memory for a name");
}

// Also when a Python error came with what was raised.
TEST_CASE(whatIsAnsweredFalseLeavesNoError) {
    NoManager host;
    host.scene.whenFinding = [] {
        PyErr_SetString(PyExc_ValueError, "a host's own");
        throw 5;
    };
    CHECK_TEXT(host.call(predicate<NAME, pluginExists>, "('taken',)").c_str(), "find:taken -> False");
    CHECK_TEXT(host.call(question<NAME, unique>, "('taken',)").c_str(), "find:taken -> False");
}

TEST_CASE(whatTheFrameDoesNotCatch) {
    NoManager host;  // its list has no room and cannot make any
    const PyRef args = python("([], '')");
    bool passed = false;
    try {
        addSceneContentFunction(nullptr, args.get());
    } catch (const ExceptionMsg& message) {
        passed = true;
        CHECK_TEXT(message.getMessage(), "[_SequenceBlock] Could not allocate memory");
    }
    CHECK(passed);
    CHECK(PyErr_Occurred() == nullptr);
    CHECK_EQ(host.list.count, 0);
    CHECK(host.list.head == nullptr);
    // The scene stays, and nobody knows of it.
    CHECK(newestScene != nullptr && newestScene != &host.scene);
    kelmo_free(newestScene, sizeof(KelmoScene));
}
