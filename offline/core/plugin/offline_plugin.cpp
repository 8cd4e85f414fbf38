#include "core/plugin/offline_plugin.h"

#include <cstring>
#include <new>

#include "core/base/call_line.h"
#include "core/base/counters.h"
#include "core/plugin/texture_parts.h"
#include "core/plugin/value_fits.h"

namespace Offline {

using KUtils::KelmoPluginParameter;

namespace {

// What stands behind a plugin in its block: the texture parts, then the name.
std::size_t partBytes(const PluginType& type) { return countTextureParts(type.textures) * TEXTURE_PART_BYTES; }

std::size_t blockBytes(const PluginType& type, const char* name) {
    return sizeof(OfflinePlugin) + partBytes(type) + std::strlen(name) + 1;
}

unsigned char* behind(OfflinePlugin* plugin) { return reinterpret_cast<unsigned char*>(plugin + 1); }

}  // namespace

OfflinePlugin* OfflinePlugin::make(PluginType& type, const char* name, std::uint32_t hash) {
    void* block = kelmo_malloc(blockBytes(type, name));
    if (block == nullptr) return nullptr;
    char* storedName = static_cast<char*>(block) + sizeof(OfflinePlugin) + partBytes(type);
    std::memcpy(storedName, name, std::strlen(name) + 1);
    return ::new (block) OfflinePlugin(type, storedName, hash);
}

void OfflinePlugin::destroy(OfflinePlugin* plugin) {
    const std::size_t bytes = blockBytes(plugin->type(), plugin->name);
    plugin->~OfflinePlugin();
    kelmo_free(plugin, bytes);
}

OfflinePlugin::OfflinePlugin(PluginType& type, const char* storedName, std::uint32_t hash) : nameHash(hash) {
    name = storedName;
    Plugin::descriptor = &type;
    PluginDescriptorInterface::descriptor = &type;
    paramList = this;
    makeTextureParts(type.textures, *this, behind(this));
    ++counters.pluginsMade;
}

OfflinePlugin::~OfflinePlugin() {
    kelmo_free(node, 0);
    ++counters.pluginsFreed;
}

KUtils::PluginInterface* OfflinePlugin::getInterface(KUtils::InterfaceID id) {
    // Compared whole: a caller that cut the identifier to 32 bits does not ask this question.
    if (id == KUtils::UNIQUE_PLUGIN_INTERFACE_ID)
        return type().unique ? static_cast<PluginDescriptorInterface*>(this) : nullptr;
    const auto wanted = static_cast<std::uint32_t>(id);
    if (wanted == KUtils::PLUGIN_DESC_INTERFACE_ID && type().offersDescriptor)
        return static_cast<PluginDescriptorInterface*>(this);
    if (KUtils::PluginInterface* part = findTexturePart(type().textures, behind(this), wanted)) return part;
    return PluginBase::getInterface(id);
}

bool OfflinePlugin::carry(KelmoPluginParameter* value) {
    if (value == nullptr || value->getName() == nullptr) return false;
    const KUtils::ParamDesc* desc = type().findParam(value->getName());
    return desc != nullptr && valueFits(*desc, *value) && put(value);
}

int OfflinePlugin::setParameter(KelmoPluginParameter* param) {
    if (isObserved()) {
        CallLine("plugin(").quoted(name).text(").setParameter(").quoted(param ? param->getName() : nullptr).text(")");
    }
    return carry(param) ? 1 : 0;
}

KelmoPluginParameter* OfflinePlugin::getParameter(const char* paramName) {
    if (isObserved()) CallLine("plugin(").quoted(name).text(").getParameter(").quoted(paramName).text(")");
    return find(paramName);
}

}  // namespace Offline
