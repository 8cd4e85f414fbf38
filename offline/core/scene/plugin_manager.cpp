#include "core/scene/plugin_manager.h"

#include "core/base/call_line.h"

namespace Offline {

KUtils::PluginDescriptor* OfflinePluginManager::getPluginDescriptor(const char* typeName) {
    if (isObserved()) CallLine("manager.getPluginDescriptor(").quoted(typeName).text(")");
    return typeName != nullptr ? catalogue.find(typeName) : nullptr;
}

void OfflinePluginManager::enumPlugins(KUtils::EnumPluginCallback* callback) {
    if (isObserved()) CallLine("manager.enumPlugins()");
    if (callback != nullptr) contents.enumerate(*callback);
}

}  // namespace Offline
