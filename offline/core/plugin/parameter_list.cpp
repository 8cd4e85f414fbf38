#include "core/plugin/parameter_list.h"

#include <cstring>

#include "core/base/call_line.h"
#include "core/plugin/offline_plugin.h"

void KUtils::KelmoParameterList::enumParams(EnumParamsCallback* callback) {
    const auto* list = static_cast<Offline::ParameterList*>(this);
    if (Offline::isObserved()) {
        // Every list is part of a plugin.
        const auto* plugin = static_cast<const Offline::OfflinePlugin*>(list);
        Offline::CallLine("plugin(").quoted(plugin->name).text(").enumParams()");
    }
    if (callback != nullptr) list->enumerate(*callback);
}

namespace Offline {

using KUtils::KelmoPluginParameter;

ParameterList::~ParameterList() { kelmo_free(values, sizeof(values[0]) * static_cast<std::size_t>(capacity)); }

std::int32_t ParameterList::place(const char* name) const {
    for (std::int32_t i = 0; i < used; ++i) {
        const char* carried = values[i]->getName();
        if (carried != nullptr && std::strcmp(carried, name) == 0) return i;
    }
    return -1;
}

KelmoPluginParameter* ParameterList::find(const char* name) const {
    const std::int32_t found = name != nullptr ? place(name) : -1;
    return found >= 0 ? values[found] : nullptr;
}

bool ParameterList::put(KelmoPluginParameter* value) {
    const std::int32_t found = place(value->getName());
    if (found >= 0) {
        values[found] = value;
        return true;
    }
    if (used == capacity) {
        const std::int32_t larger = capacity == 0 ? 4 : capacity * 2;
        void* grown = kelmo_realloc(values, sizeof(values[0]) * static_cast<std::size_t>(larger));
        if (grown == nullptr) return false;
        values = static_cast<KelmoPluginParameter**>(grown);
        capacity = larger;
    }
    values[used++] = value;
    return true;
}

void ParameterList::enumerate(KUtils::EnumParamsCallback& callback) const {
    // The callback may give the plugin further values, which moves the array and is not walked through.
    const std::int32_t atStart = used;
    for (std::int32_t i = 0; i < atStart; ++i) {
        if (callback.process(values[i]) == 0) return;
    }
}

}  // namespace Offline
