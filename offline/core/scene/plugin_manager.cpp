#include "core/scene/plugin_manager.h"

#include "core/base/call_line.h"
#include "core/base/call_watch.h"

namespace Offline {

KUtils::PluginDescriptor* OfflinePluginManager::getPluginDescriptor(const char* typeName) {
    noteCall("getPluginDescriptor");
    if (isObserved()) CallLine("manager.getPluginDescriptor(").quoted(typeName).text(")");
    return typeName != nullptr ? catalogue.find(typeName) : nullptr;
}

void OfflinePluginManager::enumPlugins(KUtils::EnumPluginCallback* callback) {
    noteCall("enumPlugins");
    if (isObserved()) CallLine("manager.enumPlugins()");
    if (callback != nullptr) contents.enumerate(*callback);
}

}  // namespace Offline
