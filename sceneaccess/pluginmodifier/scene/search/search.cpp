#include "scene/search/search.h"

#include "frame/py_ref.h"
#include "scene/lookup.h"
#include "scene/search/wildcard_pattern.h"

namespace KUtils::Python {

namespace {

// The string keeps the reference it was made with beside the list's own: scripts rely on that count.
void appendName(PyObject* list, const Plugin* plugin) {
    PyObject* name = newString(pluginName(plugin));
    if (name != nullptr) PyList_Append(list, name);
}

class FindPluginsByName final : public EnumPluginCallback {
  public:
    FindPluginsByName(PyObject* result, const char* wanted) : list(result), pattern(wanted) {}

    int process(Plugin* plugin) override {
        if (plugin == nullptr) return 1;
        const char* name = pluginName(plugin);
        if (pattern.matches(name != nullptr ? name : "")) appendName(list, plugin);
        return 1;
    }

  private:
    PyObject* list;
    WildcardPattern pattern;
};

class FindPluginsByType final : public EnumPluginCallback {
  public:
    FindPluginsByType(PyObject* result, const char* wanted) : list(result), pattern(wanted) {}

    int process(Plugin* plugin) override {
        const char* typeName = plugin != nullptr ? pluginTypeName(plugin) : nullptr;
        if (typeName != nullptr && pattern.matches(typeName)) appendName(list, plugin);
        return 1;
    }

  private:
    PyObject* list;
    WildcardPattern pattern;
};

template <class Callback>
PyObject* findPlugins(const char* pattern) {
    PyRef list = PyRef::steal(PyList_New(0));
    if (!list) return nullptr;
    Callback callback(list.get(), pattern);
    if (PluginManager* manager = currentPluginManager()) manager->enumPlugins(&callback);
    // A name that found no memory: an incomplete list would be taken for the whole.
    return PyErr_Occurred() == nullptr ? list.release() : nullptr;
}

}  // namespace

PyObject* findByName(const char* pattern) { return findPlugins<FindPluginsByName>(pattern); }

PyObject* findByType(const char* pattern) { return findPlugins<FindPluginsByType>(pattern); }

}  // namespace KUtils::Python
