#include "params/list/plugin_list_param.h"

namespace KUtils {

DefPluginListParam::DefPluginListParam(const DefPluginListParam& source) noexcept : DefListParamBaseTyped(source) {
    names.copyElements(source.names);
}

DefPluginListParam::~DefPluginListParam() { names.release(); }

PluginInterface* DefPluginListParam::getInterface(InterfaceID id) {
    PluginInterface* part = settableOrCloneable(*this, id);
    // Past its base, which answers the texture interfaces. NOLINTNEXTLINE(bugprone-parent-virtual-call)
    return part != nullptr ? part : PluginBase::getInterface(id);
}

PluginBase* DefPluginListParam::getPlugin(int index, double, const char** outputName) {
    // The two arrays are looked up apart: a name is answered even where there is no plugin.
    if (outputName != nullptr && names.holds(index)) *outputName = names.data[index];
    return elements.holds(index) ? elements.data[index] : nullptr;
}

void DefPluginListParam::setPluginOutput(PluginBase* plugin, const char* outputName, int index, double) {
    const std::int32_t place = elements.holds(index) ? index : elements.count;
    const std::int32_t named = names.count;
    if (place >= named) {
        if (!names.resize(std::int64_t{place} + 1, Growth::Stepped)) return;
        for (std::int32_t i = named; i < place; ++i) names.data[i] = nullptr;
    }
    if (place == elements.count && elements.append() == nullptr) {
        names.count = named;
        return;
    }
    elements.data[place] = plugin;
    names.data[place] = outputName;
}

void DefPluginListParam::setCount(int count) {
    if (elements.resize(count, Growth::Exact)) names.resize(count, Growth::Exact);
}

void DefPluginListParam::reserve(int capacity) {
    if (!elements.ensureCapacity(capacity)) return;
    elements.count = 0;
    if (names.ensureCapacity(capacity)) names.count = 0;
}

KelmoPluginParameter* DefPluginListParam::clone() { return wholeCopy(*this); }

bool DefPluginListParam::isWholeCopyOf(const DefPluginListParam& source) const {
    return DefListParamBaseTyped::isWholeCopyOf(source) && names.count == source.names.count;
}

}  // namespace KUtils
