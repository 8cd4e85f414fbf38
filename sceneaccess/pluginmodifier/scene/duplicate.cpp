#include "scene/duplicate.h"

#include "frame/problem.h"
#include "frame/py_ref.h"
#include "kelmo/plugin/parameter_list.h"
#include "param/clone/clone_param_value.h"
#include "param/setting/set_param.h"
#include "pointer_set/owned_values.h"
#include "scene/lifecycle.h"
#include "scene/lookup.h"

namespace KUtils::Python {

namespace {

// A standalone copy of a carried value; null when it can neither clone itself nor be cloned.
OwnedValue copyOf(PluginBase* target, KelmoPluginParameter& param) {
    if (PluginInterface* cloneable = param.getInterface(EXT_CLONEABLE_PARAM))
        return OwnedValue(static_cast<KelmoCloneableParamInterface*>(cloneable)->clone());
    const bool isList = param.getCount(0.0) != -1;
    return cloneParamValue(target, param, param.getType(0, 0.0), isList);
}

// Gives every value of one plugin to another. A copy that the target refuses stays the host's.
class ParameterDuplicator final : public EnumParamsCallback {
  public:
    ParameterDuplicator(Plugin* newPlugin, PointerSet* ownedSet) : target(newPlugin), owned(ownedSet) {}

    int process(KelmoPluginParameter* param) override {
        if (param == nullptr) return 1;
        OwnedValue copy = copyOf(target, *param);
        if (copy == nullptr) return 1;
        KelmoPluginParameter* value = copy.release();
        registerOwnedValue(owned, value);
        target->setParameter(value);
        return 1;
    }

  private:
    Plugin* target;
    PointerSet* owned;
};

}  // namespace

PyObject* duplicate(const char* sourceName, const char* newName) {
    Plugin* source = lookupPlugin(sourceName);
    if (isSingleInstance(source))
        throwWarning("Only one instance of type \\\"%s\\\" can exist.", typeNameOrEmpty(source));

    const char* typeName = typeNameOrEmpty(source);
    bool existed = false;
    Plugin* copy = createScenePlugin(newName, typeName, existed);
    if (copy == nullptr) throwWarning("A plugin \"%s\" of type \"%s\" could not be created.", newName, typeName);
    if (existed) throwWarning("A plugin \"%s\" already exists.", newName);

    ParameterDuplicator duplicator(copy, ownedParams());
    if (source->paramList != nullptr) source->paramList->enumParams(&duplicator);
    return newString(pluginName(copy));
}

}  // namespace KUtils::Python
