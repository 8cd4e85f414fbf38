// What may feed a texture parameter.
#include <cstring>

#include "param/clone/clone_param_value.h"

namespace KUtils {

namespace {

struct TextureTarget {
    std::int32_t target;       // the type of the texture parameter
    std::int32_t output;       // the declared type of an output that may feed it
    std::uint32_t identifier;  // the interface of a plugin that may feed it
};

constexpr TextureTarget textureTargets[] = {
    {PARAM_TEXTURE, PARAM_OUTPUT_TEXTURE, EXT_TEXTURE},
    {PARAM_TEXTURE_FLOAT, PARAM_OUTPUT_TEXTURE_FLOAT, EXT_TEXTURE_FLOAT},
    {PARAM_TEXTURE_INT, PARAM_OUTPUT_TEXTURE_INT, EXT_TEXTURE_INT},
    {PARAM_TEXTURE_VECTOR, PARAM_OUTPUT_TEXTURE_VECTOR, EXT_TEXTURE_VECTOR},
    {PARAM_TEXTURE_MATRIX, PARAM_OUTPUT_TEXTURE_MATRIX, EXT_TEXTURE_MATRIX},
    {PARAM_TEXTURE_TRANSFORM, PARAM_OUTPUT_TEXTURE_TRANSFORM, EXT_TEXTURE_TRANSFORM},
};

// The declaration of the plugin's output, asked for through the plugin's interface; null when it has none.
const ParamDesc* findOutput(PluginBase* plugin, const char* outputName) {
    auto* described = static_cast<PluginDescriptorInterface*>(plugin->getInterface(PLUGIN_DESC_INTERFACE_ID));
    if (described == nullptr || described->descriptor == nullptr) return nullptr;
    const ParamTable* params = described->descriptor->params;
    if (params == nullptr) return nullptr;
    for (std::int32_t i = 0; i < params->count; ++i) {
        const ParamDesc& desc = params->records[i];
        if (desc.name != nullptr && std::strcmp(desc.name, outputName) == 0) return &desc;
    }
    return nullptr;
}

}  // namespace

bool pluginFeedsTexture(KelmoPluginParameter& source, std::int32_t code) {
    PluginBase* plugin = source.getPlugin(0, 0.0, nullptr);
    if (plugin == nullptr) return false;
    for (const TextureTarget& row : textureTargets) {
        if (row.target == code && plugin->getInterface(row.identifier) != nullptr) return true;
    }
    return false;
}

bool outputFeedsTexture(KelmoPluginParameter& source, std::int32_t code) {
    const char* outputName = nullptr;
    PluginBase* plugin = source.getPlugin(0, 0.0, &outputName);
    if (plugin == nullptr || outputName == nullptr) return false;
    const ParamDesc* output = findOutput(plugin, outputName);
    if (output == nullptr || output->type == PARAM_UNKNOWN) return false;
    for (const TextureTarget& row : textureTargets) {
        if (row.target == code && row.output == output->type) return true;
    }
    return false;
}

}  // namespace KUtils
