// The ten value types with their two classes, for tables that run over all of them.
#pragma once

#include "describe.h"
#include "kelmo/param/settable.h"
#include "params/generic/generic_list_param.h"
#include "params/list/list_params.h"
#include "params/list/plugin_list_param.h"
#include "params/list/string_list_param.h"
#include "params/nested/list_of_lists_param.h"
#include "params/nested/map_channels_param.h"
#include "params/scalar/plugin_param.h"
#include "params/scalar/scalar_params.h"
#include "params/scalar/string_param.h"

namespace value_classes {

using namespace KUtils;

constexpr Matrix sampleMatrix{{{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}};
constexpr Transform sampleTransform{{{{9, 8, 7}, {6, 5, 4}, {3, 2, 1}}}, {0.5f, 0.25f, 0.125f}};

struct ValueClass {
    const char* label;
    ParamType type;
    // A new scalar of the type's sample value; its list class, empty.
    KelmoPluginParameter* (*makeScalar)(const char* name, bool ownsName);
    KelmoPluginParameter* (*makeList)(const char* name, bool ownsName);
    // Puts the sample value at `index`.
    void (*setSample)(KelmoSettableParamInterface& settable, int index);
};

constexpr int classCount = 10;
extern const ValueClass classes[classCount];

// The lists of lists, the map channels and the generic list, all empty.
struct NestedClass {
    const char* label;
    ParamType elementType;
    KelmoPluginParameter* (*make)(const char* name, bool ownsName);
};
constexpr int listOfListsCount = 4;
extern const NestedClass listsOfLists[listOfListsCount];
KelmoPluginParameter* makeMapChannels(const char* name, bool ownsName);
KelmoPluginParameter* makeGeneric(const char* name, bool ownsName);

inline KelmoSettableParamInterface& settableOf(KelmoPluginParameter& value) {
    return *static_cast<KelmoSettableParamInterface*>(value.getInterface(EXT_SETTABLE_PARAM));
}
inline KelmoPluginParameter* cloneOf(KelmoPluginParameter& value) {
    return static_cast<KelmoCloneableParamInterface*>(value.getInterface(EXT_CLONEABLE_PARAM))->clone();
}

// Deletes a value at the end of its scope.
struct Owned {
    explicit Owned(KelmoPluginParameter* made) : value(made) {}
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    ~Owned() { delete value; }
    KelmoPluginParameter* operator->() const { return value; }
    KelmoPluginParameter& operator*() const { return *value; }
    KelmoPluginParameter* value;
};

// Fails the case when the scope leaves a block behind, or frees one wrongly.
class NothingLeft {
  public:
    NothingLeft();
    ~NothingLeft();

  private:
    long long before;
};

}  // namespace value_classes
