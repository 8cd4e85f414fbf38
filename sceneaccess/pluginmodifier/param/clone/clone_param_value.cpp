#include "param/clone/clone_param_value.h"

#include "params/generic/generic_list_param.h"

namespace KUtils {

namespace {

OwnedValue cloneSingle(KelmoPluginParameter& source, std::int32_t code) {
    OwnedValue value = makeScalarValue(source, code);
    if (value == nullptr) return nullptr;
    copyElement(*settableOf(*value), source, 0);
    return value;
}

OwnedValue cloneList(PluginBase* plugin, KelmoPluginParameter& source, std::int32_t code) {
    if (source.getCount(0.0) == -1) return nullptr;
    GenericSettableListParam* generic = nullptr;
    OwnedValue value = makeListValue(plugin, source.getName(), code, &generic);
    if (value == nullptr || !fillNewList(*value, generic, source, code)) return nullptr;
    return value;
}

}  // namespace

KelmoSettableParamInterface* settableOf(KelmoPluginParameter& value) {
    return static_cast<KelmoSettableParamInterface*>(value.getInterface(EXT_SETTABLE_PARAM));
}

bool fillNewList(KelmoPluginParameter& list, GenericSettableListParam* generic, KelmoPluginParameter& source,
                 std::int32_t code) {
    if (!fillList(settableOf(list), &list, source, code, generic)) return false;
    // Like every text without memory, one that cannot be copied is null.
    if (generic != nullptr) generic->keepPrivateTexts();
    return true;
}

OwnedValue cloneParamValue(PluginBase* plugin, KelmoPluginParameter& source, std::int32_t code, bool isList) {
    return isList || code == PARAM_LIST ? cloneList(plugin, source, code) : cloneSingle(source, code);
}

}  // namespace KUtils
