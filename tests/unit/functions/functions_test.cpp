// The module's functions through their call frame, over a state that has a main scene and no host manager, and what
// passes the frame untouched.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "adapter/expression.h"
#include "check.h"
#include "clone/stub_plugin.h"
#include "frame/method.h"
#include "frame/translate_problem.h"
#include "kelmo/core/exception_msg.h"
#include "param/introspection.h"
#include "param/set_param.h"
#include "params/scalar/scalar_params.h"
#include "pointer_set/owned_values.h"
#include "scene/duplicate.h"
#include "scene/import.h"
#include "scene/lifecycle.h"
#include "scene/search.h"

using namespace KUtils;
using namespace KUtils::Python;

namespace {

constexpr char NAME[] = "function";

// The values that a plugin of this test carries.
class OneValue final : public KelmoParameterList {
  public:
    explicit OneValue(KelmoPluginParameter& carriedValue) : value(carriedValue) {}
    KelmoPluginParameter& value;
};

// A plugin that carries what it is given.
class CarryingPlugin final : public StubPlugin {
  public:
    CarryingPlugin(const char* typeName, const char* pluginName) : StubPlugin(typeName) {
        name = pluginName;
        descriptor = &type;
        type.declare("strength", PARAM_FLOAT);
    }
    int setParameter(KelmoPluginParameter* param) override {
        offered = param;
        ownedWhenGiven = owned != nullptr ? static_cast<int>(owned->count) : -1;
        if (takes) carried = param;
        return takes ? 1 : 0;
    }
    KelmoPluginParameter* getParameter(const char*) override { return carried; }

    KelmoPluginParameter* carried = nullptr;
    KelmoPluginParameter* offered = nullptr;
    bool takes = true;
    const PointerSet* owned = nullptr;
    int ownedWhenGiven = -1;  // how many values the set held when the plugin was given one
};

class AllPlugins final : public PluginManager {
  public:
    PluginDescriptor* getPluginDescriptor(const char*) override { return nullptr; }
    void enumPlugins(EnumPluginCallback* callback) override {
        for (Plugin* plugin : plugins) {
            if (callback->process(plugin) == 0) return;
        }
    }
    std::vector<Plugin*> plugins;
};

class MainScene final : public KelmoScene {
  public:
    MainScene() : KelmoScene(nullptr, nullptr, 0) {}

    PluginManager* getManager() override { return &manager; }
    void deletePlugin(Plugin* plugin, bool flag) override {
        calls += std::string("delete:") + plugin->name + (flag ? ":true " : ":false ");
    }
    Plugin* findPlugin(const char* name) override {
        calls += std::string("find:") + name + " ";
        for (Plugin* plugin : manager.plugins) {
            if (std::string(plugin->name) == name) return plugin;
        }
        return nullptr;
    }
    Plugin* newPlugin(const char* typeName, const char* name, int flags) override {
        calls += std::string("new:") + typeName + ":" + name + ":" + std::to_string(flags) + " ";
        return made;
    }

    AllPlugins manager;
    Plugin* made = nullptr;
    std::string calls;
};

// A state without a host manager, as nobody but this test makes it.
struct NoManager {
    NoManager() {
        scene.manager.plugins = {&taken, &nameless};
        state.mainScene = &scene;
        state.sceneList = &list;
        sceneAccessState = &state;
    }
    ~NoManager() { sceneAccessState = nullptr; }

    // What a function gives for these arguments: a repr, or "Type: text"; and what the scene was asked.
    template <class Function>
    std::string call(Function function, const char* arguments) {
        const PyRef args = python(arguments);
        scene.calls.clear();
        const PyRef result = PyRef::steal(function(nullptr, args.get()));
        std::string text;
        if (result) {
            CHECK(PyErr_Occurred() == nullptr);
            text = PyString_AsString(PyRef::steal(PyObject_Repr(result.get())).get());
        } else {
            PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
            PyErr_Fetch(&type, &value, &traceback);
            text = std::string(PyExceptionClass_Name(type)).substr(11) + ": " + PyString_AsString(value);
            for (PyObject* part : {type, value, traceback}) Py_XDECREF(part);
        }
        return scene.calls + "-> " + text;
    }

    CarryingPlugin taken{"Light", "taken"};
    CarryingPlugin nameless{nullptr, "typeless"};  // has no descriptor
    MainScene scene;
    SceneList list{};
    SceneAccessState state{};
};

PyCFunction const createFunction = method<NAME, create>;
PyCFunction const deleteFunction = method<NAME, deletePlugin>;
PyCFunction const duplicateFunction = method<NAME, duplicate>;
PyCFunction const setParamFunction = method<NAME, setParam>;
PyCFunction const addSceneContentFunction = method<NAME, addSceneContent>;

}  // namespace

// Stands in for the core's: the lists of this test are not the core's own.
void KelmoParameterList::enumParams(EnumParamsCallback* callback) {
    callback->process(nullptr);  // is passed over
    callback->process(&static_cast<OneValue*>(this)->value);
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

TEST_CASE(thePluginsValuesThatThereAre) {
    NoManager host;
    const PyCFunction function = method<NAME, getPluginParams>;
    CHECK_TEXT(host.call(function, "('taken', 1)").c_str(), "find:taken -> []");  // it carries no list
    DefFloatParam value("strength", 0.5f, false);
    OneValue values(value);
    host.taken.paramList = &values;
    CHECK_TEXT(host.call(function, "('taken', 1)").c_str(), "find:taken -> ['strength']");
}

TEST_CASE(aPluginWithoutValuesIsDuplicated) {
    NoManager host;
    CarryingPlugin made("Light", "made");
    host.scene.made = &made;
    CHECK_TEXT(host.call(duplicateFunction, "('taken', 'made')").c_str(),
               "find:taken find:made new:Light:made:0 -> 'made'");
    CHECK(made.offered == nullptr);
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
    CHECK_TEXT(host.call(method<NAME, appendSceneContent>, "(['any.kscene'], '')").c_str(), "-> None");
    CHECK_EQ(host.list.count, 1);
    CHECK(host.list.head == nullptr);
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
}
