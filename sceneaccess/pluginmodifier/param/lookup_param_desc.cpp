#include "param/lookup_param_desc.h"

#include <cstring>

#include "frame/problem.h"
#include "host/state.h"

namespace KUtils::Python {

const ParamDesc& lookupParamDesc(const Plugin* plugin, const char* name) {
    ensureInitialized();
    const ParamTable* table = plugin->descriptor != nullptr ? plugin->descriptor->params : nullptr;
    const std::int32_t count = table != nullptr ? table->count : 0;
    for (std::int32_t i = 0; i < count; ++i) {
        const ParamDesc& record = table->records[i];
        if (record.name != nullptr && std::strcmp(record.name, name) == 0) return record;
    }
    throwError("A parameter with name \"%s\" doesn't exist for plugin \"%s\".", name, pluginName(plugin));
}

}  // namespace KUtils::Python
