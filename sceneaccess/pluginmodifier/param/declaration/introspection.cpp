#include "param/declaration/introspection.h"

#include <cstring>

#include "frame/numbers.h"
#include "frame/problem.h"
#include "frame/py_ref.h"
#include "host/state.h"
#include "param/declaration/lookup_param_desc.h"
#include "scene/lookup.h"

namespace KUtils::Python {

namespace {

// Collects the values that a plugin carries; the array is released with the callback.
class CollectExistingParams final : public EnumParamsCallback {
  public:
    CollectExistingParams() = default;
    CollectExistingParams(const CollectExistingParams&) = delete;
    CollectExistingParams& operator=(const CollectExistingParams&) = delete;
    ~CollectExistingParams() { kelmo_free(elements, sizeof(KelmoPluginParameter*) * capacity); }

    int process(KelmoPluginParameter* param) override {
        if (param != nullptr && (count < capacity || grow())) elements[count++] = param;
        return 1;
    }
    std::int32_t size() const { return count; }
    KelmoPluginParameter* at(std::int32_t index) const { return elements[index]; }

  private:
    // To the next multiple of the step above the new count. Without memory the element is dropped.
    bool grow() {
        const std::int32_t needed = count + 1;
        const std::int32_t newCapacity = needed + growStep - needed % growStep;
        auto* storage = static_cast<KelmoPluginParameter**>(kelmo_malloc(sizeof(KelmoPluginParameter*) * newCapacity));
        if (storage == nullptr) return false;
        if (count > 0) std::memcpy(storage, elements, sizeof(KelmoPluginParameter*) * count);
        kelmo_free(elements, sizeof(KelmoPluginParameter*) * capacity);
        elements = storage;
        capacity = newCapacity;
        return true;
    }

    std::int32_t count = 0;
    std::int32_t growStep = 100;
    std::int32_t capacity = 0;
    KelmoPluginParameter** elements = nullptr;
};

// A new list of `count` strings, each made by `nameOf(index)`.
template <class NameOf>
PyObject* listOfNames(std::int32_t count, const NameOf& nameOf) {
    PyRef list = PyRef::steal(PyList_New(count));
    if (!list) return nullptr;
    for (std::int32_t i = 0; i < count; ++i) {
        PyObject* name = newString(nameOf(i));
        if (name == nullptr) return nullptr;
        PyList_SET_ITEM(list.get(), i, name);
    }
    return list.release();
}

PyObject* declaredParamNames(const PluginDescriptor* descriptor) {
    ensureInitialized();
    const ParamTable* table = descriptor != nullptr ? descriptor->params : nullptr;
    const std::int32_t count = table != nullptr && table->count > 0 ? table->count : 0;
    return listOfNames(count, [table](std::int32_t i) { return table->records[i].name; });
}

PyObject* existingParamNames(const Plugin* plugin) {
    ensureInitialized();
    CollectExistingParams params;
    if (plugin->paramList != nullptr) plugin->paramList->enumParams(&params);
    return listOfNames(params.size(), [&params](std::int32_t i) { return params.at(i)->getName(); });
}

}  // namespace

PyObject* getPluginParams(const char* pluginName, PyObject* flag) {
    const std::int32_t existing = asInt32(flag);
    PyErr_Clear();
    const Plugin* plugin = lookupPlugin(pluginName);
    return existing != 0 ? existingParamNames(plugin) : declaredParamNames(plugin->descriptor);
}

PyObject* getTypeParams(const char* typeName) {
    PluginManager* manager = currentPluginManager();
    const PluginDescriptor* descriptor = manager != nullptr ? manager->getPluginDescriptor(typeName) : nullptr;
    if (descriptor == nullptr) throwWarning("\\\"%s\\\" is not a valid plugin type.", typeName);
    return declaredParamNames(descriptor);
}

PyObject* getParamType(const char* pluginName, const char* param) {
    const ParamDesc& record = lookupParamDesc(lookupPlugin(pluginName), param);
    PyRef type = PyRef::steal(PyLong_FromLong(record.type));
    if (!type) return nullptr;
    PyObject* pair = PyTuple_New(2);
    if (pair == nullptr) return nullptr;
    PyTuple_SET_ITEM(pair, 0, type.release());
    PyTuple_SET_ITEM(pair, 1, newBool(record.listCount != -1));
    return pair;
}

PyObject* isOutputParam(const char* pluginName, const char* param) {
    return newBool(isOutputType(lookupParamDesc(lookupPlugin(pluginName), param).type));
}

bool paramExists(const char* pluginName, const char* param) {
    const Plugin* plugin = findPlugin(pluginName);
    return plugin != nullptr && findParamDesc(plugin, param) != nullptr;
}

}  // namespace KUtils::Python
