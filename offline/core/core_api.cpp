#include "core/core_api.h"

#include "core/catalogue/type_writer.h"
#include "core/scene/plugin_manager.h"
#include "core/scene/scene_access.h"

namespace Offline {
namespace {

OfflinePluginManager& managerOf(KUtils::PluginManager* manager) { return static_cast<OfflinePluginManager&>(*manager); }

void describe(const PluginType& type, TextSink sink, void* user) {
    const std::string text = typeAsJson(type);
    sink(user, text.data(), text.size());
}

}  // namespace

KUtils::PluginManager* makeManager() { return new OfflinePluginManager; }

void freeManager(KUtils::PluginManager* manager) { delete static_cast<OfflinePluginManager*>(manager); }

SceneContents& mainContents(KUtils::PluginManager* manager) { return managerOf(manager).contents; }

KUtils::ErrorRecord* addTypes(KUtils::PluginManager* manager, const char* directory) {
    return managerOf(manager).catalogue.addFolder(directory);
}

bool describeTypes(KUtils::PluginManager* manager, const char* typeName, TextSink sink, void* user) {
    const Catalogue& catalogue = managerOf(manager).catalogue;
    if (typeName != nullptr) {
        const PluginType* type = catalogue.find(typeName);
        if (type == nullptr) return false;
        describe(*type, sink, user);
        return true;
    }
    for (std::size_t i = 0; i < catalogue.count(); ++i) describe(catalogue.at(i), sink, user);
    return true;
}

const char* nearestType(KUtils::PluginManager* manager, const char* name) {
    return managerOf(manager).catalogue.nearest(name);
}

const char* kindOf(KUtils::Plugin* plugin) { return kindName(OfflinePlugin::from(plugin)->type().kind); }

SceneContents& contentsOf(KUtils::KelmoScene* scene) { return *KUtils::SceneAccess::contents(*scene); }

void freeScene(KUtils::KelmoScene* scene) {
    if (scene == nullptr) return;
    scene->KUtils::KelmoScene::~KelmoScene();
    kelmo_free(scene, sizeof(KUtils::KelmoScene));
}

KUtils::Plugin* findPlugin(SceneContents& contents, const char* name) { return contents.find(name); }

KUtils::Plugin* findPluginOfNode(SceneContents& contents, const char* node) { return contents.findByNode(node); }

KUtils::Plugin* createPlugin(SceneContents& contents, const char* typeName, const char* name) {
    PluginType* type = typeName != nullptr ? contents.catalogue().find(typeName) : nullptr;
    return type != nullptr ? contents.create(*type, name) : nullptr;
}

bool deletePlugin(SceneContents& contents, KUtils::Plugin* plugin) {
    return contents.remove(OfflinePlugin::from(plugin));
}

bool isAlive(KUtils::Plugin* plugin) { return OfflinePlugin::from(plugin)->isAlive(); }

void enumContents(SceneContents& contents, KUtils::EnumPluginCallback* callback) { contents.enumerate(*callback); }

void enumValues(KUtils::Plugin* plugin, KUtils::EnumParamsCallback* callback) {
    OfflinePlugin::from(plugin)->enumerate(*callback);
}

std::size_t pluginCount(SceneContents& contents) { return contents.count(); }

void clearContents(SceneContents& contents) { contents.clear(); }

}  // namespace Offline
