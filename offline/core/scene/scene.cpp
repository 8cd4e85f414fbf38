// KelmoScene: an extra scene over a manager, with the manager's plugin types and contents of its own.
#include "kelmo/scene/scene.h"

#include <memory>

#include "core/base/call_line.h"
#include "core/base/call_watch.h"
#include "core/base/counters.h"
#include "core/base/error_maker.h"
#include "core/scene/plugin_manager.h"
#include "core/scene/scene_access.h"
#include "core/scene/scene_reading.h"

namespace KUtils {

using namespace Offline;

KelmoScene::KelmoScene(PluginManager* manager, Parser* parser, int flags) {
    noteCall("KelmoScene");
    if (isObserved()) {
        CallLine("KelmoScene(")
            .text(manager != nullptr ? "manager, " : "null, ")
            .text(parser != nullptr ? "parser, " : "null, ")
            .number(flags)
            .text(")");
    }
    SceneContents* contents = nullptr;
    if (manager != nullptr) {
        auto& offline = static_cast<OfflinePluginManager&>(*manager);
        contents = std::make_unique<SceneContents>(offline.catalogue, &offline.contents).release();
    }
    SceneAccess::bind(*this, manager, contents);
    ++counters.scenesMade;
}

KelmoScene::~KelmoScene() {
    const std::unique_ptr<SceneContents> contents(SceneAccess::contents(*this));
    ++counters.scenesFreed;
}

PluginManager* KelmoScene::getManager() {
    noteCall("getManager");
    if (isObserved()) CallLine("scene.getManager()");
    return SceneAccess::manager(*this);
}

void KelmoScene::deletePlugin(Plugin* plugin, bool flag) {
    noteCall("deletePlugin");
    if (isObserved()) {
        CallLine("scene.deletePlugin(")
            .quoted(plugin != nullptr ? plugin->name : nullptr)
            .text(flag ? ", true)" : ", false)");
    }
    SceneContents* contents = SceneAccess::contents(*this);
    if (contents != nullptr) contents->remove(OfflinePlugin::from(plugin));
}

Plugin* KelmoScene::findPlugin(const char* name) {
    noteCall("findPlugin");
    if (isObserved()) CallLine("scene.findPlugin(").quoted(name).text(")");
    SceneContents* contents = SceneAccess::contents(*this);
    return contents != nullptr ? contents->find(name) : nullptr;
}

Plugin* KelmoScene::newPlugin(const char* typeName, const char* name, int flags) {
    noteCall("newPlugin");
    if (isObserved()) {
        CallLine("scene.newPlugin(").quoted(typeName).text(", ").quoted(name).text(", ").number(flags).text(")");
    }
    SceneContents* contents = SceneAccess::contents(*this);
    return contents != nullptr ? createPlugin(*contents, typeName, name) : nullptr;
}

ErrorRecord* KelmoScene::readFile(const char* file, int flag1, int flag2, const char* text) {
    noteCall("readFile");
    if (isObserved()) {
        CallLine("scene.readFile(")
            .quoted(file)
            .text(", ")
            .number(flag1)
            .text(", ")
            .number(flag2)
            .text(", ")
            .quoted(text)
            .text(")");
    }
    SceneContents* contents = SceneAccess::contents(*this);
    if (contents == nullptr) return makeError(nullptr, nullptr, "the scene has no plugin manager");
    if (file == nullptr) return makeError(nullptr, nullptr, "no file name");
    return readSceneFile(*contents, file, nullptr);
}

// The scene does not own the value: whoever made it frees it, perhaps before the scene ends.
void KelmoScene::attachParameter(KelmoPluginParameter* param) {
    noteCall("attachParameter");
    if (isObserved()) CallLine("scene.attachParameter(").quoted(param ? param->getName() : nullptr).text(")");
    if (param != nullptr) ++counters.attachedParameters;
}

}  // namespace KUtils
