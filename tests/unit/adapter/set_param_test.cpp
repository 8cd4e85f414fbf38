// Setting a parameter, against a host that writes down every call: the order of the road, and who frees what.
#include "param/setting/set_param.h"

#include <string>

#include "check.h"
#include "expression.h"
#include "frame/problem.h"
#include "frame/py_ref.h"
#include "param/declaration/introspection.h"
#include "pointer_set/owned_values.h"
#include "pointer_set/pointer_hash.h"
#include "pointer_set/pointer_set_algorithm.h"
#include "stub_host.h"

using namespace KUtils;
using namespace KUtils::Python;

namespace {

std::string road;

void note(const std::string& call) { road += (road.empty() ? "" : " ") + call; }

// A value that the plugin carried before; its end is written down, with whether the new one was registered by then.
class OldValue : public KelmoPluginParameter {
  public:
    explicit OldValue(PointerSet* set) : owned(set) {}
    ~OldValue() override { note("destroyed(old, " + std::to_string(owned != nullptr ? owned->count : 0) + " owned)"); }
    const char* getName() override { return "strength"; }

  private:
    PointerSet* owned;
};

class RoadPlugin : public StubPlugin {
  public:
    RoadPlugin() : StubPlugin("RoadPlugin") {
        type.declare("strength", PARAM_FLOAT);
        type.declare("texture", PARAM_TEXTURE);
        type.declare("frames", PARAM_LIST);
    }
    PluginInterface* getInterface(InterfaceID id) override {
        note("getInterface");
        return StubPlugin::getInterface(id);
    }
    PluginDescriptor* getPluginDescriptor() override {
        note("getPluginDescriptor");
        return StubPlugin::getPluginDescriptor();
    }
    int setParameter(KelmoPluginParameter* param) override {
        note(std::string("setParameter(") + param->getName() + ")");
        if (takes) carried = param;
        return takes ? 1 : 0;
    }
    KelmoPluginParameter* getParameter(const char* wanted) override {
        note(std::string("getParameter(") + wanted + ")");
        errorPending = errorPending || PyErr_Occurred() != nullptr;
        return carried;
    }

    KelmoPluginParameter* carried = nullptr;
    bool takes = true;
    bool errorPending = false;
};

// A host with a set of its own (or none) and one plugin.
struct Road {
    explicit Road(bool hasSet) {
        set.growLoad = 0.75f;
        if (hasSet) host.ownedParams = &set;
        host.add("plug", plugin);
        plugin.interfaces.push_back(EXT_TEXTURE);
        road.clear();
    }
    ~Road() { kelmo_free(set.entries, set.capacity * POINTER_SET_ENTRY_BYTES); }

    // Sets the parameter; the calls, then what the caller gets: None or the problem's text.
    std::string run(const char* param, const char* expression) {
        const PyRef value = python(expression);
        road.clear();
        host.asked.clear();
        std::string result;
        try {
            const PyRef none = PyRef::steal(setParam("plug", param, value.get()));
            result = none.get() == Py_None ? "None" : "?";
        } catch (const SceneAccessProblem& problem) {
            result = problem.message;
        }
        CHECK(PyErr_Occurred() == nullptr);
        return host.asked + " " + road + " -> " + result;
    }
    bool owns(const KelmoPluginParameter* value) const {
        return PointerSetAlgorithm<PointerHash>::contains(set, reinterpret_cast<std::uintptr_t>(value));
    }

    StubHost host;
    PointerSet set{};
    RoadPlugin plugin;
};

}  // namespace

TEST_CASE(theOldValueIsDestroyedAfterTheNewOneIsRegistered) {
    Road way(true);
    auto* old = new OldValue(&way.set);
    way.plugin.carried = old;
    registerOwnedValue(&way.set, old);
    CHECK_TEXT(way.run("strength", "(1, 0.5)").c_str(),
               "find:plug getParameter(strength) setParameter(strength) destroyed(old, 2 owned) -> None");
    CHECK_EQ(way.set.count, 1u);
    CHECK(way.owns(way.plugin.carried));
    CHECK_EQ(way.plugin.carried->getFloat(0, 0.0), 0.5f);
    CHECK(destroyOwnedValue(&way.set, way.plugin.carried));
}

TEST_CASE(aForeignOldValueIsLeftAlone) {
    Road way(true);
    OldValue old(&way.set);
    way.plugin.carried = &old;
    CHECK_TEXT(way.run("strength", "(1, 0.5)").c_str(),
               "find:plug getParameter(strength) setParameter(strength) -> None");
    CHECK(way.owns(way.plugin.carried));
    CHECK(destroyOwnedValue(&way.set, way.plugin.carried));
}

TEST_CASE(theSameValueAgainIsRegisteredOnce) {
    Road way(true);
    way.run("strength", "(1, 0.5)");
    way.run("strength", "(1, 0.25)");
    CHECK_EQ(way.set.count, 1u);
    CHECK(destroyOwnedValue(&way.set, way.plugin.carried));
}

TEST_CASE(aRefusedValueNeverReachesTheSet) {
    Road way(true);
    OldValue old(nullptr);
    way.plugin.carried = &old;
    way.plugin.takes = false;
    CHECK_TEXT(way.run("strength", "(1, 0.5)").c_str(),
               "find:plug getParameter(strength) setParameter(strength) -> "
               "The parameter \\\"strength\\\" couldn't be set for plugin \\\"plug\\\".");
    CHECK(way.plugin.carried == &old);
    CHECK_EQ(way.set.count, 0u);
    CHECK_EQ(way.set.capacity, 0u);
}

TEST_CASE(withoutASetTheValueIsGivenAllTheSame) {
    Road way(false);
    OldValue old(nullptr);
    way.plugin.carried = &old;
    CHECK_TEXT(way.run("strength", "(1, 0.5)").c_str(),
               "find:plug getParameter(strength) setParameter(strength) -> None");
    CHECK(way.plugin.carried != &old);
    delete way.plugin.carried;
}

TEST_CASE(whatThePluginIsAskedOnTheWay) {
    struct Row {
        const char* param;
        const char* expression;
        const char* calls;
    };
    const char* INVALID_TEXTURE = "Invalid value given for parameter \\\"texture\\\" in plugin \\\"plug\\\".";
    const std::string taken = " setParameter(texture) -> None";
    const Row rows[] = {
        // The interface of the plugin that is referred to, then the value again for the copy.
        {"texture", "(10, 'plug')", "find:plug find:plug find:plug getInterface getParameter(texture)"},
        // For an output the descriptor is asked for, and there is no texture interface in it.
        {"texture", "(1000, ('plug', 'out'))", "find:plug find:plug find:plug getInterface getParameter(texture)"},
        {"texture", "(1000, ('plug', 'strength'))", nullptr},
        // The type's name, only where the parameter's name is special.
        {"frames", "(12, [])", "find:plug getPluginDescriptor getParameter(frames) setParameter(frames) -> None"},
        {"anything", "(12, [])", "find:plug getParameter(anything) setParameter(anything) -> None"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.expression);
        Road way(true);
        way.plugin.type.declare("out", PARAM_OUTPUT_TEXTURE);
        way.plugin.type.declare("anything", PARAM_LIST);
        const std::string calls = way.run(row.param, row.expression);
        if (row.calls == nullptr) {
            CHECK_TEXT(calls.c_str(), (std::string("find:plug find:plug getInterface -> ") + INVALID_TEXTURE).c_str());
            continue;
        }
        const bool texture = std::string(row.param) == "texture";
        CHECK_TEXT(calls.c_str(), (row.calls + (texture ? taken : "")).c_str());
        CHECK(destroyOwnedValue(&way.set, way.plugin.carried));
    }
}

TEST_CASE(aProblemTakesTheErrorWithIt) {
    Road way(true);
    for (const char* value : {"(10, 5)", "(10, [(10, None)])", "(1000, ('nowhere', 5))"}) {
        CHECK_ROW(value);
        const std::string result = way.run("texture", value);
        CHECK(result.find("-> The plugin \"") != std::string::npos);
    }
}

TEST_CASE(everyListCountButMinusOneDeclaresAList) {
    const char* INVALID = "find:plug  -> Invalid value given for parameter \\\"ints\\\" in plugin \\\"plug\\\".";
    for (const int listCount : {INT32_MIN, -2, -1, 0, 1, 5}) {
        const bool isList = listCount != -1;
        const std::string label = std::to_string(listCount);
        CHECK_ROW(label.c_str());
        Road way(true);
        way.plugin.type.declare("ints", PARAM_INT);
        way.plugin.type.records.back().listCount = listCount;
        const PyRef type = PyRef::steal(getParamType("plug", "ints"));
        CHECK(PyTuple_GetItem(type.get(), 1) == (isList ? Py_True : Py_False));

        const char* TAKEN = "find:plug getParameter(ints) setParameter(ints) -> None";
        CHECK_TEXT(way.run("ints", "(0, 5)").c_str(), isList ? INVALID : TAKEN);
        CHECK_TEXT(way.run("ints", "(0, [(0, 1), (0, 2)])").c_str(), TAKEN);
        CHECK_EQ(way.plugin.carried->getCount(0.0), isList ? 2 : -1);
        CHECK(destroyOwnedValue(&way.set, way.plugin.carried));
    }
}

namespace {

// An extra scene that holds at most one plugin, and writes down what is attached to it.
class ExtraScene final : public KelmoScene {
  public:
    ExtraScene(const char* sceneName, Plugin* held) : KelmoScene(nullptr, nullptr, 0), name(sceneName), plugin(held) {}
    Plugin* findPlugin(const char*) override { return plugin; }
    void attachParameter(KelmoPluginParameter* param) override {
        note("attach(" + std::string(name) + ", " + std::to_string(param->getFloat(0, 0.0)).substr(0, 4) + ")");
    }

  private:
    const char* name;
    Plugin* plugin;
};

}  // namespace

TEST_CASE(theSceneThatHoldsThePluginIsToldOfTheNewValue) {
    // From the head of the list: one that holds nothing, one that could not be made, and two that hold the plugin.
    for (const int holder : {2, 3}) {
        CHECK_ROW(holder == 2 ? "third" : "fourth");
        Road way(true);
        RoadPlugin kept;
        kept.name = "extra";
        kept.descriptor = &kept.type;
        OldValue old(&way.set);
        kept.carried = &old;
        ExtraScene first("first", nullptr), third("third", holder == 2 ? &kept : nullptr), fourth("fourth", &kept);
        SceneNode nodes[] = {{&first, &nodes[1]}, {nullptr, &nodes[2]}, {&third, &nodes[3]}, {&fourth, nullptr}};
        SceneList list{};
        list.head = nodes;
        list.count = 4;
        sceneAccessState->sceneList = &list;
        const PyRef value = python("(1, 0.5)");
        road.clear();
        PyRef::steal(setParam("extra", "strength", value.get()));
        CHECK_TEXT(road.c_str(), (std::string("getParameter(strength) setParameter(strength) attach(") +
                                  (holder == 2 ? "third" : "fourth") + ", 0.50)")
                                     .c_str());
        CHECK(destroyOwnedValue(&way.set, kept.carried));
    }
}

TEST_CASE(theErrorIsTakenBeforeTheHostIsCalled) {
    Road way(true);
    CHECK_TEXT(way.run("strength", "(1, 'x')").c_str(),
               "find:plug getParameter(strength) setParameter(strength) -> "
               "A value given for parameter \"strength\" in plugin \"plug\" could not be read as its type: a float is "
               "required.");
    CHECK(!way.plugin.errorPending);
    CHECK_EQ(way.plugin.carried->getFloat(0, 0.0), -1.0f);
    CHECK(destroyOwnedValue(&way.set, way.plugin.carried));
}
