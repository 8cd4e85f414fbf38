#include "param/setting/set_param.h"

#include "frame/problem.h"
#include "frame/py_ref.h"
#include "host/state.h"
#include "param/adapter/conversion_error.h"
#include "param/adapter/nesting.h"
#include "param/adapter/python_conversions.h"
#include "param/adapter/python_param.h"
#include "param/clone/clone_param_value.h"
#include "param/declaration/lookup_param_desc.h"
#include "param/setting/fast_fill.h"
#include "param/setting/fast_scalar.h"
#include "pointer_set/owned_values.h"
#include "scene/lookup.h"

namespace KUtils::Python {

namespace {

// True when reading the type code cannot fail.
bool hasExactCode(PyObject* tagged) {
    PyObject* code = PyTuple_GET_ITEM(tagged, 0);
    return PyInt_CheckExact(code) && PyInt_AS_LONG(code) == static_cast<std::int32_t>(PyInt_AS_LONG(code));
}

// The value object that cloneParamValue makes of a list value, on the fast road where that gives the same.
OwnedValue cloneListValue(Plugin* plugin, const char* name, std::int32_t code, PyObject* tagged) {
    PyObject* list = PyTuple_GET_ITEM(tagged, 1);
    GenericSettableListParam* generic = nullptr;
    OwnedValue value = makeListValue(plugin, name, code, &generic);
    if (value == nullptr) return nullptr;
    if (hasExactCode(tagged) && PyList_CheckExact(list) && fastFill(*value, *settableOf(*value), code, list))
        return value;

    if (!hasBoundedNesting(list)) return nullptr;
    PythonParam source(tagged, name);
    return fillNewList(*value, generic, source, code) ? std::move(value) : nullptr;
}

OwnedValue cloneValue(Plugin* plugin, const char* name, const ParamDesc& desc, PyObject* tagged) {
    const bool isListParam = desc.listCount != -1;
    if ((isListParam || desc.type == PARAM_LIST) && isTagged(tagged) && isList(PyTuple_GET_ITEM(tagged, 1)))
        return cloneListValue(plugin, name, desc.type, tagged);
    PythonParam source(tagged, name);
    return cloneParamValue(plugin, source, desc.type, isListParam);
}

// Settles who frees the values: the new one the host; the old one at once when it is the host's, else whoever made it.
void settleOwnership(KelmoPluginParameter* value, KelmoPluginParameter* old, int sceneIndex) {
    PointerSet* owned = ownedParams();
    registerOwnedValue(owned, value);
    if (old == nullptr || destroyOwnedValue(owned, old) || sceneIndex == -1) return;
    if (KelmoScene* scene = sceneAt(sceneIndex)) scene->attachParameter(value);
}

}  // namespace

PointerSet* ownedParams() {
    const SceneAccessState& state = *sceneAccessState;
    return state.hostManager != nullptr ? state.hostManager->ownedParams : state.fallbackOwnedParams;
}

PyObject* setParam(const char* pluginName, const char* paramName, PyObject* value) {
    int sceneIndex = -1;
    Plugin* plugin = lookupPlugin(pluginName, sceneIndex);
    const ParamDesc& desc = lookupParamDesc(plugin, paramName);

    ConversionError conversionError;
    OwnedValue made;
    if (desc.listCount != -1 || !fastScalar(paramName, desc.type, value, made)) {
        const TakeConversionError take(conversionError);
        made = cloneValue(plugin, paramName, desc, value);
    }
    // A conversion may have run the script's own code, and that may have ended the access.
    ensureInitialized();
    if (made == nullptr)
        throwError("Invalid value given for parameter \\\"%s\\\" in plugin \\\"%s\\\".", paramName, pluginName);

    KelmoPluginParameter* old = plugin->getParameter(paramName);
    if (plugin->setParameter(made.get()) == 0) {
        made.reset();
        throwError("The parameter \\\"%s\\\" couldn't be set for plugin \\\"%s\\\".", paramName, pluginName);
    }
    settleOwnership(made.release(), old, sceneIndex);

    if (conversionError) {
        throwWarning("A value given for parameter \"%s\" in plugin \"%s\" could not be read as its type: %s.",
                     paramName, pluginName, conversionError.text().c_str());
    }
    return newNone();
}

}  // namespace KUtils::Python
