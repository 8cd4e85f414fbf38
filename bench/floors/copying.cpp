// Copying: malloc and memcpy of a value's bytes, of an array's bytes, and the clone that is compared with it.
#include "floors.h"
#include "host.h"

// Order as above: the interpreter's header comes first.
#include <cstring>
#include <memory>
#include <vector>

#include "kelmo/param/settable.h"

namespace Bench {

using namespace KUtils;

namespace {

// As large as a number that the renderer's plugins carry: seven base parts, a name and the number.
constexpr std::size_t VALUE_BYTES = 112;

std::vector<void*> copies;

// Gives a plugin the very objects that another carries.
class Share final : public EnumParamsCallback {
  public:
    explicit Share(Plugin* plugin) : target(plugin) {}
    int process(KelmoPluginParameter* value) override { return target->setParameter(value); }

  private:
    Plugin* target;
};

// Null with an error pending when the value cannot clone itself.
KelmoCloneableParamInterface* cloneableOf(KelmoPluginParameter& value) {
    PluginInterface* cloneable = value.getInterface(EXT_CLONEABLE_PARAM);
    if (cloneable == nullptr) PyErr_SetString(PyExc_TypeError, "the value cannot clone itself");
    return static_cast<KelmoCloneableParamInterface*>(cloneable);
}

}  // namespace

// The copies stay, as the values of a duplicate do.
PyObject* copyValues(PyObject*, PyObject* args) {
    static const unsigned char source[VALUE_BYTES] = {1};
    const long count = PyInt_AsLong(PyTuple_GET_ITEM(args, 0));
    for (long i = 0; i < count; ++i) {
        void* copy = kelmo_malloc(VALUE_BYTES);
        if (copy == nullptr) return PyErr_NoMemory();
        std::memcpy(copy, source, VALUE_BYTES);
        copies.push_back(copy);
    }
    Py_RETURN_NONE;
}

PyObject* freeCopies(PyObject*, PyObject*) {
    for (void* copy : copies) kelmo_free(copy, VALUE_BYTES);
    copies.clear();
    Py_RETURN_NONE;
}

// What duplicating a plugin makes the host do: the copy carries the source's own objects, nothing is cloned.
PyObject* shareValues(PyObject*, PyObject* args) {
    Plugin* source = pluginArgument(args);
    const char* name = source != nullptr ? textArgument(args, 1) : nullptr;
    if (name == nullptr) return nullptr;
    bool existed = source->getInterface(UNIQUE_PLUGIN_INTERFACE_ID) != nullptr;
    Plugin* copy = manager()->createPlugin(name, pluginTypeName(source), existed, false, false, false);
    if (copy == nullptr || existed) return PyErr_Format(PyExc_RuntimeError, "%.200s could not be made", name);
    Share share(copy);
    source->paramList->enumParams(&share);
    return PyString_FromString(pluginName(copy));
}

PyObject* copyArray(PyObject*, PyObject* args) {
    static std::vector<unsigned char> source;
    const auto bytes = static_cast<std::size_t>(PyInt_AsLong(PyTuple_GET_ITEM(args, 0)));
    if (source.size() != bytes) source.assign(bytes, 1);
    void* copy = kelmo_malloc(bytes);
    if (copy == nullptr) return PyErr_NoMemory();
    std::memcpy(copy, source.data(), bytes);
    kelmo_free(copy, bytes);
    Py_RETURN_NONE;
}

PyObject* cloneValue(PyObject*, PyObject* args) {
    KelmoPluginParameter* value = valueArgument(args);
    KelmoCloneableParamInterface* cloneable = value != nullptr ? cloneableOf(*value) : nullptr;
    if (cloneable == nullptr) return nullptr;
    delete cloneable->clone();
    Py_RETURN_NONE;
}

PyObject* cloneIsEqual(PyObject*, PyObject* args) {
    KelmoPluginParameter* value = valueArgument(args);
    KelmoCloneableParamInterface* cloneable = value != nullptr ? cloneableOf(*value) : nullptr;
    if (cloneable == nullptr) return nullptr;
    const std::unique_ptr<KelmoPluginParameter> clone(cloneable->clone());
    const ListView<Vector> points = value->getVectorList(0.0);
    const ListView<Vector> copied = clone != nullptr ? clone->getVectorList(0.0) : emptyView<Vector>();
    const bool isEqual =
        points.count > 0 && points.count == copied.count && points.data != copied.data &&
        std::memcmp(points.data, copied.data, sizeof(Vector) * static_cast<std::size_t>(points.count)) == 0;
    releaseView(points);
    releaseView(copied);
    return PyBool_FromLong(isEqual);
}

}  // namespace Bench
