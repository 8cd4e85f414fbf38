// Which class holds a list value.
#include <cstring>

#include "param/clone/clone_param_value.h"
#include "params/generic/generic_list_param.h"
#include "params/list/list_params.h"
#include "params/list/plugin_list_param.h"
#include "params/list/string_list_param.h"
#include "params/nested/list_of_lists_param.h"
#include "params/nested/map_channels_param.h"

namespace KUtils {

namespace {

// The source's name goes with the source.
constexpr bool OWNS_NAME = true;

template <class Class>
OwnedValue makeNamed(const char* name) {
    return OwnedValue(new Class(name, OWNS_NAME));
}

struct SpecialList {
    const char* param;
    const char* pluginType;
    OwnedValue (*make)(const char* name);
};

// Exact names of exact types: these parameters have a class of their own.
constexpr SpecialList specialLists[] = {
    {"map_channels", "GeomStaticMesh", makeNamed<DefMapChannelsParam>},
    {"ignored_lights", "SettingsLightLinker", makeNamed<DefListOfListPluginParam>},
    {"ignored_shadow_lights", "SettingsLightLinker", makeNamed<DefListOfListPluginParam>},
    {"frames", "SettingsOutput", makeNamed<DefListOfListIntParam>},
    {"weights", "GeomStaticNURBS", makeNamed<DefListOfListFloatParam>},
    {"cvs", "GeomStaticNURBS", makeNamed<DefListOfListVectorParam>},
};

OwnedValue makeNestedList(PluginBase* plugin, const char* name, GenericSettableListParam** generic) {
    for (const SpecialList& row : specialLists) {
        if (name == nullptr || std::strcmp(row.param, name) != 0) continue;
        const char* type = pluginTypeName(plugin);
        if (type != nullptr && std::strcmp(row.pluginType, type) == 0) return row.make(name);
    }
    auto* list = new GenericSettableListParam(name);
    if (generic != nullptr) *generic = list;
    return OwnedValue(list);
}

}  // namespace

OwnedValue makeListValue(PluginBase* plugin, const char* name, std::int32_t code, GenericSettableListParam** generic) {
    switch (code) {
        case PARAM_INT:
            return makeNamed<DefIntListParam>(name);
        case PARAM_FLOAT:
            return makeNamed<DefFloatListParam>(name);
        case PARAM_DOUBLE:
            return makeNamed<DefDoubleListParam>(name);
        case PARAM_VECTOR:
            return makeNamed<DefVectorListParam>(name);
        case PARAM_COLOR:
            return makeNamed<DefColorListParam>(name);
        case PARAM_ACOLOR:
            return makeNamed<DefAColorListParam>(name);
        case PARAM_MATRIX:
            return makeNamed<DefMatrixListParam>(name);
        case PARAM_TRANSFORM:
            return makeNamed<DefTransformListParam>(name);
        case PARAM_STRING:
            return makeNamed<DefStringListParam>(name);
        case PARAM_LIST:
            return makeNestedList(plugin, name, generic);
        case PARAM_PLUGIN:
            return makeNamed<DefPluginListParam>(name);
        default:  // texture lists are lists of plugin references; there is no bool list
            return isTextureType(code) ? makeNamed<DefPluginListParam>(name) : nullptr;
    }
}

}  // namespace KUtils
