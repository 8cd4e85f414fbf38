#include "stub_renderer.h"

#include <cstring>
#include <map>
#include <memory>
#include <utility>

#include "host/error_text.h"
#include "host/state.h"
#include "host/system/system.h"
#include "kelmo/core/exception_msg.h"
#include "kelmo/param/shader_source.h"
#include "kelmo/scene/host_exports.h"
#include "stub_plugin.h"

using namespace KUtils;

namespace stub {

const Foreign* Foreign::thrown = nullptr;
int Foreign::copies = 0;
Plan plan;

void reach(const char* operation) {
    plan.reached.push_back(operation);
    if (plan.reached.size() != plan.raiseAt) return;
    switch (plan.kind) {
        case Kind::Foreign:
            throw Foreign();
        case Kind::CoreMessage:
            throw ExceptionMsg("%s", MESSAGE);
        case Kind::Number:
            throw NUMBER;
    }
}

namespace {

// What stands while a World does: the host's functions have no other way to it.
struct Renderer {
    Plugin* find(const char* wanted) {
        for (Plugin* plugin : {thing, other}) {
            if (plugin->name != nullptr && std::strcmp(plugin->name, wanted) == 0) return noPlugins ? nullptr : plugin;
        }
        return nullptr;
    }

    StubPlugin* thing = nullptr;
    StubPlugin* other = nullptr;
    StubPlugin* extra = nullptr;
    PluginManager* manager = nullptr;
    HostPluginManager* host = nullptr;
    SceneList* scenes = nullptr;
    PluginDescriptor* type = nullptr;
    bool noPlugins = false;
    bool noClones = false;
    int loads = 0;
};

Renderer renderer;
KelmoScene* newestScene = nullptr;

struct Manager final : PluginManager {
    PluginDescriptor* getPluginDescriptor(const char* typeName) override {
        reach("manager.getPluginDescriptor");
        return std::strcmp(typeName, "Thing") == 0 ? renderer.type : nullptr;
    }
    void enumPlugins(EnumPluginCallback* callback) override {
        reach("manager.enumPlugins");
        for (Plugin* plugin : {renderer.thing, renderer.other}) {
            if (callback->process(renderer.noPlugins ? nullptr : plugin) == 0) return;
        }
        reach("manager.enumPlugins, at its end");
    }
};

struct HostManager final : HostPluginManager {
    Plugin* findPlugin(const char* name) override {
        reach("host.findPlugin");
        return renderer.find(name);
    }
    Plugin* createPlugin(const char* name, const char*, bool& existed, bool, bool, bool) override {
        reach("host.createPlugin");
        existed = std::strcmp(name, "thing") == 0;
        return renderer.noPlugins ? nullptr : existed ? renderer.thing : renderer.other;
    }
    void deletePlugin(Plugin*, bool) override { reach("host.deletePlugin"); }
    int beginScriptAccess() override {
        reach("host.beginScriptAccess");
        return 1;
    }
    int endScriptAccess() override {
        reach("host.endScriptAccess");
        return 1;
    }
};

HostPluginManager* giveManager() {
    reach("getPluginManager");
    return renderer.host;
}
SceneList* giveScenes() {
    reach("getScenes");
    return renderer.scenes;
}
Plugin* exportNode(const char* name) {
    reach("export");
    return renderer.find(name);
}
void printWarning(const char*) { reach("printWarning"); }

constexpr std::uint32_t SET_CAPACITY = 64;

void makeSet(PointerSet& set) {
    const std::size_t bytes = SET_CAPACITY * POINTER_SET_ENTRY_BYTES;
    set = PointerSet{static_cast<unsigned char*>(kelmo_malloc(bytes)), SET_CAPACITY, 0, 4, 0.25f, 0.75f, SET_CAPACITY};
    std::memset(set.entries, POINTER_SET_EMPTY, bytes);
}

void freeSet(PointerSet& set) {
    for (std::uint32_t slot = 0; slot < set.capacity; ++slot) {
        const unsigned char* entry = set.entries + slot * POINTER_SET_ENTRY_BYTES;
        if (entry[POINTER_SET_FLAG_OFFSET] != POINTER_SET_IN_USE) continue;
        KelmoPluginParameter* value = nullptr;
        std::memcpy(&value, entry, sizeof value);
        delete value;
    }
    kelmo_free(set.entries, set.capacity * POINTER_SET_ENTRY_BYTES);
}

void freeScenes(SceneList& scenes) {
    for (const SceneNode* node = scenes.head; node != nullptr; node = node->next) {
        kelmo_free(node->scene, sizeof(KelmoScene));
    }
    for (SceneBlock* block = scenes.firstBlock; block != nullptr;) {
        SceneBlock* next = block->next;
        kelmo_free(block->slots, sizeof(SceneNode) * static_cast<std::size_t>(block->capacity));
        kelmo_free(block, sizeof(SceneBlock));
        block = next;
    }
}

}  // namespace

bool answersNoClones() { return renderer.noClones; }

struct World::Parts {
    Parts() {
        host.pluginManager = &manager;
        host.ownedParams = &set;
        makeSet(set);
        scenes.blockSize = 4;
        for (const Carried& carried : carriedValues()) {
            values.push_back(std::make_unique<ValueHolder>(carried, &other));
            thing.carry(&values.back()->value, carried.name);
        }
        extra.carry(&values.front()->value, "int");
        renderer = Renderer{&thing, &other, &extra, &manager, &host, &scenes, &descriptor};
        // As the module itself does it: a scene in the list's storage.
        auto* block = static_cast<SceneBlock*>(kelmo_malloc(sizeof(SceneBlock)));
        *block = SceneBlock{nullptr, nullptr, 1, 4, static_cast<SceneNode*>(kelmo_malloc(4 * sizeof(SceneNode)))};
        block->slots[0] = SceneNode{new (kelmo_malloc(sizeof(KelmoScene))) KelmoScene(&manager, nullptr, 0), nullptr};
        scenes.firstBlock = scenes.currentBlock = block;
        scenes.head = block->slots;
        scenes.count = scenes.slotsTaken = 1;
    }
    ~Parts() {
        freeSet(set);
        freeScenes(scenes);
        renderer = Renderer{};
    }

    Descriptor descriptor;
    StubPlugin thing{"thing", descriptor};
    StubPlugin other{"other", descriptor};
    StubPlugin extra{"extra", descriptor};
    std::vector<std::unique_ptr<ValueHolder>> values;
    Manager manager;
    PointerSet set{};
    HostManager host;
    SceneList scenes{};
};

World::World() {
    plan = Plan();
    parts = std::make_unique<Parts>();
    plan = Plan();
}
World::~World() = default;
int World::loads() const { return renderer.loads; }
void World::setBlockSize(std::int32_t slots) {
    parts->scenes.blockSize = slots;
    parts->scenes.firstBlock->used = parts->scenes.firstBlock->capacity;
}
void World::freeNewestScene() { kelmo_free(std::exchange(newestScene, nullptr), sizeof(KelmoScene)); }
void World::answerNoPlugins() { renderer.noPlugins = true; }
void World::hideDescriptors() {
    for (StubPlugin* plugin : {&parts->thing, &parts->other, &parts->extra}) plugin->hideDescriptor();
}

void World::hideOthersDescriptor() { parts->other.hideDescriptor(); }
void World::takePluginManager() { parts->host.pluginManager = nullptr; }
void World::takeOwnedValues() { parts->host.ownedParams = nullptr; }
void World::takeOthersName() { parts->other.name = nullptr; }
void World::takeLists() {
    for (StubPlugin* plugin : {&parts->thing, &parts->other, &parts->extra}) plugin->paramList = nullptr;
    parts->descriptor.params = nullptr;
}
void World::beginListsWithNulls() {
    parts->descriptor.records.front().name = nullptr;
    parts->descriptor.table.count = 2;
    parts->extra.carryNothing();
    parts->extra.carry(&parts->values.front()->value, "int");
}
void World::answerNoClones() { renderer.noClones = true; }
void World::refuseValues() {
    for (StubPlugin* plugin : {&parts->thing, &parts->other, &parts->extra}) plugin->takesValues = false;
}
void World::carryMany(std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) parts->extra.carry(&parts->values.front()->value, "int");
}
int World::openLevels() const {
    int levels = 0;
    for (const auto& holder : parts->values) levels += holder->value.openLevels();
    return levels;
}
std::uint32_t World::ownedValues() const { return parts->set.count; }
std::vector<KUtils::KelmoPluginParameter*> World::takenValues() const {
    std::vector<KUtils::KelmoPluginParameter*> values;
    for (const StubPlugin* plugin : {&parts->thing, &parts->other, &parts->extra}) {
        values.insert(values.end(), plugin->taken.begin(), plugin->taken.end());
    }
    return values;
}

}  // namespace stub

// The core

namespace KUtils {

KelmoScene::KelmoScene(PluginManager*, Parser*, int) : reserved8(nullptr), reserved16(nullptr), reserved24(nullptr) {
    stub::reach("scene.KelmoScene");
    stub::newestScene = this;
}
KelmoScene::~KelmoScene() = default;
PluginManager* KelmoScene::getManager() { return stub::renderer.manager; }
void KelmoScene::deletePlugin(Plugin*, bool) { stub::reach("scene.deletePlugin"); }
Plugin* KelmoScene::findPlugin(const char* name) {
    stub::reach("scene.findPlugin");
    return !stub::renderer.noPlugins && std::strcmp(name, "extra") == 0 ? stub::renderer.extra : nullptr;
}
Plugin* KelmoScene::newPlugin(const char*, const char*, int) { return nullptr; }
ErrorRecord* KelmoScene::readFile(const char* file, int, int, const char*) {
    stub::reach("scene.readFile");
    if (file == nullptr || std::strcmp(file, "bad") != 0) return nullptr;
    return Python::makeErrorRecord("stub", 5, nullptr, "%s", "cannot be read");
}
void KelmoScene::attachParameter(KelmoPluginParameter*) { stub::reach("scene.attachParameter"); }

void KelmoParameterList::enumParams(EnumParamsCallback* callback) {
    stub::reach("list.enumParams");
    for (KelmoPluginParameter* value : static_cast<stub::ParameterList*>(this)->values) {
        if (callback->process(value) == 0) return;
    }
}

void ShaderSource::printf(const char*, ...) {}

}  // namespace KUtils

// The system

namespace KUtils::Python {

SharedText* readEnvironment(const char*) { return makeSharedText("/root"); }

LibraryHandle loadLib(const char*, ErrorRecord**) {
    ++stub::renderer.loads;
    return &stub::renderer;
}

void* findSymbol(LibraryHandle, const char* name) {
    const std::map<std::string, void*> symbols = {{HOST_GET_PLUGIN_MANAGER, reinterpret_cast<void*>(stub::giveManager)},
                                                  {HOST_GET_SCENES, reinterpret_cast<void*>(stub::giveScenes)},
                                                  {HOST_EXPORT_TEXTURE, reinterpret_cast<void*>(stub::exportNode)},
                                                  {HOST_EXPORT_MATERIAL, reinterpret_cast<void*>(stub::exportNode)},
                                                  {HOST_EXPORT_CAMERA, reinterpret_cast<void*>(stub::exportNode)},
                                                  {HOST_EXPORT_NODE, reinterpret_cast<void*>(stub::exportNode)},
                                                  {HOST_PRINT_WARNING, reinterpret_cast<void*>(stub::printWarning)}};
    return symbols.at(name);
}

void freeLibrary(LibraryHandle) { --stub::renderer.loads; }

}  // namespace KUtils::Python
