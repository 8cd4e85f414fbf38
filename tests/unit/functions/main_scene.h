// A main scene of the tests' own, and the module's state over it: without a host manager, as nobody but a test makes
// it, or with one. What they are asked is written down.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "adapter/expression.h"
#include "clone/stub_plugin.h"
#include "host/state.h"

// A list of carried values that holds one.
class OneValue final : public KUtils::KelmoParameterList {
  public:
    explicit OneValue(KUtils::KelmoPluginParameter& carriedValue) : value(carriedValue) {}
    KUtils::KelmoPluginParameter& value;
};

// A plugin that carries what it is given.
class CarryingPlugin final : public StubPlugin {
  public:
    CarryingPlugin(const char* typeName, const char* pluginName) : StubPlugin(typeName) {
        name = pluginName;
        descriptor = &type;
        type.declare("strength", KUtils::PARAM_FLOAT);
    }
    KUtils::PluginInterface* getInterface(KUtils::InterfaceID id) override {
        if (id == KUtils::UNIQUE_PLUGIN_INTERFACE_ID) return isSingle ? &single : nullptr;
        return StubPlugin::getInterface(id);
    }
    int setParameter(KUtils::KelmoPluginParameter* param) override {
        offered = param;
        ownedWhenGiven = owned != nullptr ? static_cast<int>(owned->count) : -1;
        if (takes) carried = param;
        return takes ? 1 : 0;
    }
    KUtils::KelmoPluginParameter* getParameter(const char*) override { return carried; }

    bool isSingle = false;
    KUtils::KelmoPluginParameter* carried = nullptr;
    KUtils::KelmoPluginParameter* offered = nullptr;
    bool takes = true;
    const KUtils::PointerSet* owned = nullptr;
    int ownedWhenGiven = -1;  // how many values the set held when the plugin was given one

  private:
    StubInterface single;
};

class AllPlugins final : public KUtils::PluginManager {
  public:
    KUtils::PluginDescriptor* getPluginDescriptor(const char*) override { return nullptr; }
    void enumPlugins(KUtils::EnumPluginCallback* callback) override {
        enumerated = 0;
        for (KUtils::Plugin* plugin : plugins) {
            ++enumerated;
            if (callback->process(plugin) == 0) return;
        }
        if (atTheEnd) atTheEnd();
    }
    std::vector<KUtils::Plugin*> plugins;
    int enumerated = 0;  // by the last enumeration
    std::function<void()> atTheEnd;
};

class MainScene final : public KUtils::KelmoScene {
  public:
    MainScene() : KelmoScene(nullptr, nullptr, 0) {}

    KUtils::PluginManager* getManager() override { return &manager; }
    void deletePlugin(KUtils::Plugin* plugin, bool flag) override {
        calls += std::string("delete:") + plugin->name + (flag ? ":true " : ":false ");
    }
    KUtils::Plugin* findPlugin(const char* name) override {
        calls += std::string("find:") + name + " ";
        if (whenFinding) whenFinding();
        for (KUtils::Plugin* plugin : manager.plugins) {
            if (std::string(plugin->name) == name) return plugin;
        }
        return nullptr;
    }
    KUtils::Plugin* newPlugin(const char* typeName, const char* name, int flags) override {
        calls += std::string("new:") + typeName + ":" + name + ":" + std::to_string(flags) + " ";
        return made;
    }
    KUtils::ErrorRecord* readFile(const char* file, int, int, const char*) override {
        if (whenReading) whenReading();
        calls += std::string("read:") + (file != nullptr ? file : "null") + " ";
        return nullptr;
    }

    AllPlugins manager;
    KUtils::Plugin* made = nullptr;
    std::function<void()> whenFinding, whenReading;
    std::string calls;
};

// A host manager over the same scene. What it creates is the scene's `made`.
class MainManager final : public KUtils::HostPluginManager {
  public:
    explicit MainManager(MainScene& mainScene) : scene(mainScene) { pluginManager = &scene.manager; }

    KUtils::Plugin* findPlugin(const char* name) override { return scene.findPlugin(name); }
    KUtils::Plugin* createPlugin(const char* name, const char* typeName, bool& existed, bool flag1, bool flag2,
                                 bool flag3) override {
        scene.calls += std::string("create:") + name + ":" + typeName + (flag1 || flag2 || flag3 ? ":flags " : " ");
        if (tells) existed = existedBefore;
        return scene.made;
    }
    void deletePlugin(KUtils::Plugin* plugin, bool flag) override { scene.deletePlugin(plugin, flag); }
    int beginScriptAccess() override { return 0; }
    int endScriptAccess() override { return 0; }

    bool tells = true;  // whether a plugin existed before
    bool existedBefore = false;

  private:
    MainScene& scene;
};

// The state without a host manager. The scene holds "taken" and "typeless", which has no descriptor.
struct NoManager {
    NoManager() {
        scene.manager.plugins = {&taken, &typeless};
        state.mainScene = &scene;
        state.sceneList = &list;
        KUtils::Python::sceneAccessState = &state;
    }
    ~NoManager() { KUtils::Python::sceneAccessState = nullptr; }

    // What a function gives for these arguments: what the scene was asked, then the result's repr, or "Type: text".
    std::string call(PyCFunction function, const char* arguments) { return call(function, python(arguments).get()); }
    std::string call(PyCFunction function, PyObject* arguments) {
        using KUtils::Python::PyRef;
        scene.calls.clear();
        const PyRef result = PyRef::steal(function(nullptr, arguments));
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
    CarryingPlugin typeless{nullptr, "typeless"};
    MainScene scene;
    KUtils::SceneList list{};
    KUtils::Python::SceneAccessState state{};
};

// The same with one.
struct WithManager : NoManager {
    WithManager() { state.hostManager = &manager; }
    MainManager manager{scene};
};
