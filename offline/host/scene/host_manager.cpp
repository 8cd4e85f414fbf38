#include "host/scene/host_manager.h"

#include "core/base/call_line.h"
#include "core/core_api.h"
#include "host/host.h"

namespace Offline {

KUtils::Plugin* HostManager::findPlugin(const char* name) {
    host.noteCall("findPlugin");
    if (isObserved()) CallLine("manager.findPlugin(").quoted(name).text(")");
    return name != nullptr ? Offline::findPlugin(host.contents(), name) : nullptr;
}

KUtils::Plugin* HostManager::createPlugin(const char* name, const char* typeName, bool& existed, bool flag1, bool flag2,
                                          bool flag3) {
    host.noteCall("createPlugin");
    if (isObserved()) {
        CallLine("manager.createPlugin(")
            .quoted(name)
            .text(", ")
            .quoted(typeName)
            .text(flag1 ? ", true" : ", false")
            .text(flag2 ? ", true" : ", false")
            .text(flag3 ? ", true)" : ", false)");
    }
    existed = false;
    if (name == nullptr || typeName == nullptr) return nullptr;
    KUtils::Plugin* plugin = Offline::findPlugin(host.contents(), name);
    existed = plugin != nullptr;
    return existed ? plugin : Offline::createPlugin(host.contents(), typeName, name);
}

void HostManager::deletePlugin(KUtils::Plugin* plugin, bool flag) {
    host.noteCall("deletePlugin");
    if (isObserved()) {
        CallLine("manager.deletePlugin(")
            .quoted(plugin != nullptr ? KUtils::pluginName(plugin) : nullptr)
            .text(flag ? ", true)" : ", false)");
    }
    if (plugin != nullptr && Offline::deletePlugin(host.contents(), plugin)) return;
    host.warnings.add("deletePlugin was given a plugin that does not stand in the main scene");
}

int HostManager::beginScriptAccess() {
    host.noteCall("beginScriptAccess");
    if (isObserved()) CallLine("manager.beginScriptAccess()");
    ++accessesBegun;
    return 0;
}

int HostManager::endScriptAccess() {
    host.noteCall("endScriptAccess");
    if (isObserved()) CallLine("manager.endScriptAccess()");
    ++accessesEnded;
    return 0;
}

void HostManager::forgetAccesses(bool allAreOver) {
    accessesBegun = allAreOver || accessesEnded > accessesBegun ? 0 : accessesBegun - accessesEnded;
    accessesEnded = 0;
}

}  // namespace Offline
