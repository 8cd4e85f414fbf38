// The renderer's objects: operations through the raw table, and the fields that are read as bytes.
#include <cstring>

#include "contract/probe.h"
#include "contract/test_heap.h"
#include "kelmo/core/exception_msg.h"
#include "kelmo/param/shader_source.h"
#include "kelmo/scene/host_plugin_manager.h"
#include "kelmo/scene/scene.h"
#include "raw_slots.h"
#include "support/check.h"

using namespace KUtils;

namespace {

char anything[64];
const char nameText[] = "name";
const char typeText[] = "Type";

Plugin* somePlugin() { return reinterpret_cast<Plugin*>(anything); }
PluginManager* someManager() { return reinterpret_cast<PluginManager*>(anything + 8); }
PluginDescriptor* someDescriptor() { return reinterpret_cast<PluginDescriptor*>(anything + 16); }
KelmoPluginParameter* someParameter() { return reinterpret_cast<KelmoPluginParameter*>(anything + 24); }
ErrorRecord* someError() { return reinterpret_cast<ErrorRecord*>(anything + 32); }
PointerSet* someSet() { return reinterpret_cast<PointerSet*>(anything + 40); }

const void* bytes(const void* pointer) { return pointer; }

// The pointer that stands at a byte of an object.
const void* pointerAt(const void* object, int byte) {
    const void* value;
    std::memcpy(&value, static_cast<const unsigned char*>(object) + byte, sizeof value);
    return value;
}

class ProbePlugin : public Plugin {
  public:
    PluginDescriptor* getPluginDescriptor() override {
        note("getPluginDescriptor", bytes(this));
        return someDescriptor();
    }
    int setParameter(KelmoPluginParameter* param) override {
        note("setParameter", bytes(static_cast<PluginBase*>(this)), bytes(param));
        return 3;
    }
    KelmoPluginParameter* getParameter(const char* parameter) override {
        note("getParameter", bytes(static_cast<PluginBase*>(this)), bytes(parameter));
        return someParameter();
    }
};

class ProbeDescriptor : public PluginDescriptor {
  public:
    const char* getTypeName() override { return typeText; }
};

class ProbeHostManager : public HostPluginManager {
  public:
    Plugin* findPlugin(const char* name) override {
        note("findPlugin", bytes(name));
        return somePlugin();
    }
    Plugin* createPlugin(const char* name, const char* typeName, bool& existed, bool flag1, bool flag2,
                         bool flag3) override {
        note("createPlugin", bytes(name), bytes(typeName), bytes(&existed), flag1, flag2, flag3);
        existed = true;
        return somePlugin();
    }
    void deletePlugin(Plugin* plugin, bool flag) override { note("deletePlugin", bytes(plugin), flag); }
    int beginScriptAccess() override {
        note("beginScriptAccess");
        return 1;
    }
    int endScriptAccess() override {
        note("endScriptAccess");
        return 2;
    }
};

class ProbeManager : public PluginManager {
  public:
    PluginDescriptor* getPluginDescriptor(const char* typeName) override {
        note("getPluginDescriptor", bytes(typeName));
        return someDescriptor();
    }
    void enumPlugins(EnumPluginCallback* callback) override { note("enumPlugins", bytes(callback)); }
};

}  // namespace

// The scene is the renderer core's; here it notes what it is asked.
namespace KUtils {
KelmoScene::KelmoScene(PluginManager* manager, Parser* parser, int flags)
    : reserved8(nullptr), reserved16(nullptr), reserved24(nullptr) {
    note("KelmoScene", bytes(manager), bytes(parser), flags);
    (void)reserved8, (void)reserved16, (void)reserved24;
}
KelmoScene::~KelmoScene() {}
PluginManager* KelmoScene::getManager() {
    note("getManager");
    return someManager();
}
void KelmoScene::deletePlugin(Plugin* plugin, bool flag) { note("deletePlugin", bytes(plugin), flag); }
Plugin* KelmoScene::findPlugin(const char* name) {
    note("findPlugin", bytes(name));
    return somePlugin();
}
Plugin* KelmoScene::newPlugin(const char* typeName, const char* name, int flags) {
    note("newPlugin", bytes(typeName), bytes(name), flags);
    return somePlugin();
}
ErrorRecord* KelmoScene::readFile(const char* file, int flag1, int flag2, const char* text) {
    note("readFile", bytes(file), flag1, flag2, bytes(text));
    return someError();
}
void KelmoScene::attachParameter(KelmoPluginParameter* param) { note("attachParameter", bytes(param)); }
}  // namespace KUtils

TEST_CASE(pluginBytes) {
    ProbePlugin plugin;
    plugin.name = nameText;
    plugin.descriptor = someDescriptor();
    plugin.paramList = reinterpret_cast<KelmoParameterList*>(anything + 48);
    auto* base = static_cast<PluginBase*>(&plugin);
    CHECK_EQ(bytes(base), bytes(&plugin));
    CHECK_EQ(bytes(static_cast<ParamHolder*>(&plugin)), bytes(reinterpret_cast<char*>(&plugin) + 32));
    CHECK_EQ(pointerAt(&plugin, 24), bytes(nameText));
    CHECK_EQ(pointerAt(&plugin, 40), bytes(someDescriptor()));
    CHECK_EQ(pointerAt(&plugin, 48), bytes(anything + 48));
    CHECK_EQ(bytes(pluginName(base)), bytes(nameText));

    CHECK_EQ(pointerAt(&plugin, 8), nullptr);
    CHECK(base->addInterface(reinterpret_cast<PluginInterface*>(anything), 0));
    const void* record = pointerAt(&plugin, 8);
    CHECK(record != nullptr);
    CHECK_EQ(pointerAt(record, 0), bytes(anything));
    CHECK(base->removeInterface(reinterpret_cast<PluginInterface*>(anything)));
}

TEST_CASE(pluginOperations) {
    ProbePlugin plugin;
    // After the destructor and the four operations of PluginBase.
    CHECK_EQ(callSlot<PluginDescriptor*>(&plugin, DESTRUCTOR_SLOTS + 4), someDescriptor());
    CHECK_CALLED("getPluginDescriptor", bytes(&plugin));

    // The holder at byte 32 has a table of its own, and hands the whole plugin on.
    const void* holder = reinterpret_cast<const char*>(&plugin) + 32;
    CHECK_EQ(callSlot<int>(holder, 0, someParameter()), 3);
    CHECK_CALLED("setParameter", bytes(&plugin), bytes(someParameter()));
    CHECK_EQ(callSlot<KelmoPluginParameter*>(holder, 1, nameText), someParameter());
    CHECK_CALLED("getParameter", bytes(&plugin), bytes(nameText));
}

TEST_CASE(pluginTypeNames) {
    struct Described : ProbePlugin {
        PluginDescriptor* getPluginDescriptor() override { return descriptor; }
    } plugin;
    CHECK_EQ(bytes(pluginTypeName(&plugin)), nullptr);
    ProbeDescriptor described;
    plugin.descriptor = &described;
    CHECK_EQ(bytes(pluginTypeName(&plugin)), bytes(typeText));
}

TEST_CASE(descriptorBytesAndOperations) {
    ProbeDescriptor descriptor;
    ParamTable table{};
    descriptor.params = &table;
    CHECK_EQ(pointerAt(&descriptor, 16), bytes(&table));
    CHECK_EQ(bytes(callSlot<const char*>(&descriptor, 0)), bytes(typeText));

    struct Answer : PluginDescriptorInterface {
        PluginBase* getPlugin() override { return nullptr; }
    } answer;
    answer.descriptor = &descriptor;
    CHECK_EQ(pointerAt(&answer, 8), bytes(&descriptor));
    CHECK_EQ(callSlot<std::uint32_t>(&answer, DESTRUCTOR_SLOTS), 0x7776FFFFu);
}

TEST_CASE(hostManagerBytesAndOperations) {
    ProbeHostManager manager;
    void* object = &manager;
    manager.pluginManager = someManager();
    manager.ownedParams = someSet();
    CHECK_EQ(pointerAt(object, 24), bytes(someManager()));
    CHECK_EQ(pointerAt(object, 32), bytes(someSet()));

    CHECK_EQ(callSlot<Plugin*>(object, 0, nameText), somePlugin());
    CHECK_CALLED("findPlugin", bytes(nameText));
    bool existed = false;
    CHECK_EQ(callSlot<Plugin*>(object, 1, nameText, typeText, &existed, false, true, false), somePlugin());
    CHECK_CALLED("createPlugin", bytes(nameText), bytes(typeText), bytes(&existed), false, true, false);
    CHECK(existed);
    callSlot<void>(object, 2, somePlugin(), true);
    CHECK_CALLED("deletePlugin", bytes(somePlugin()), true);
    CHECK_EQ(callSlot<int>(object, 3), 1);
    CHECK_CALLED("beginScriptAccess");
    CHECK_EQ(callSlot<int>(object, 4), 2);
    CHECK_CALLED("endScriptAccess");
}

TEST_CASE(managerOperations) {
    ProbeManager manager;
    CHECK_EQ(callSlot<PluginDescriptor*>(&manager, 0, typeText), someDescriptor());
    CHECK_CALLED("getPluginDescriptor", bytes(typeText));
    callSlot<void>(&manager, 1, bytes(anything));
    CHECK_CALLED("enumPlugins", bytes(anything));
}

TEST_CASE(callbackOperations) {
    struct Plugins : EnumPluginCallback {
        int process(Plugin* plugin) override {
            note("process", bytes(plugin));
            return 1;
        }
    } plugins;
    CHECK_EQ(callSlot<int>(&plugins, 0, somePlugin()), 1);
    CHECK_CALLED("process", bytes(somePlugin()));
    struct Params : EnumParamsCallback {
        int process(KelmoPluginParameter* param) override {
            note("process", bytes(param));
            return 0;
        }
    } params;
    CHECK_EQ(callSlot<int>(&params, 0, someParameter()), 0);
    CHECK_CALLED("process", bytes(someParameter()));
}

TEST_CASE(sceneOperations) {
    KelmoScene scene(someManager(), nullptr, 7);
    CHECK_CALLED("KelmoScene", bytes(someManager()), bytes(nullptr), 7);
    void* object = &scene;
    CHECK_EQ(callSlot<PluginManager*>(object, 0), someManager());
    CHECK_CALLED("getManager");
    callSlot<void>(object, 1, somePlugin(), true);
    CHECK_CALLED("deletePlugin", bytes(somePlugin()), true);
    CHECK_EQ(callSlot<Plugin*>(object, 2, nameText), somePlugin());
    CHECK_CALLED("findPlugin", bytes(nameText));
    CHECK_EQ(callSlot<Plugin*>(object, 3, typeText, nameText, 5), somePlugin());
    CHECK_CALLED("newPlugin", bytes(typeText), bytes(nameText), 5);
    CHECK_EQ(callSlot<ErrorRecord*>(object, 4, nameText, 0, 1, typeText), someError());
    CHECK_CALLED("readFile", bytes(nameText), 0, 1, bytes(typeText));
    callSlot<void>(object, 5, someParameter());
    CHECK_CALLED("attachParameter", bytes(someParameter()));
}

TEST_CASE(evaluationContextOperation) {
    struct Context : EvaluationContext {
        EvaluationState state{1.5};
        const EvaluationState* getEvaluationState() const override { return &state; }
    } context;
    CHECK_EQ(callSlot<const EvaluationState*>(&context, 0)->time, 1.5);
}

TEST_CASE(exceptionMessageOperations) {
    ExceptionMsg message("%s %d", "number", 5);
    CHECK_TEXT(reinterpret_cast<const char*>(&message) + 8, "number 5");
    CHECK_TEXT(callSlot<const char*>(&message, DESTRUCTOR_SLOTS), "number 5");
    alignas(ExceptionMsg) unsigned char storage[sizeof(ExceptionMsg)];
    destroyThroughTable(::new (storage) ExceptionMsg(message));
}
