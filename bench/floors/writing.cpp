// Writing: a tagged list read straight into a C array; a scalar set as one new object, without the owned-value set.
#include "floors.h"
#include "host.h"

// Order as above: the interpreter's header comes first.
#include <cstring>
#include <type_traits>
#include <utility>

namespace Bench {

using namespace KUtils;

namespace {

// A text that stands in the object itself.
struct Text {
    char characters[64];
};

template <class T>
constexpr ParamType CODE = PARAM_INT;
template <>
constexpr ParamType CODE<float> = PARAM_FLOAT;
template <>
constexpr ParamType CODE<Vector> = PARAM_VECTOR;
template <>
constexpr ParamType CODE<Color> = PARAM_COLOR;
template <>
constexpr ParamType CODE<Text> = PARAM_STRING;

// The least that a plugin can carry: one value, with the declaration's name.
template <class T>
class FloorValue final : public KelmoPluginParameter {
  public:
    FloorValue(const char* paramName, const T& initial) : name(paramName), value(initial) {}

    const char* getName() override { return name; }
    ParamType getType(int, double) override { return CODE<T>; }
    int getInt(int, double) override { return as<std::int32_t>(); }
    float getFloat(int, double) override { return as<float>(); }
    Vector getVector(int, double) override { return as<Vector>(); }
    Color getColor(int, double) override { return as<Color>(); }
    const char* getString(int, double) override {
        if constexpr (std::is_same_v<T, Text>) return value.characters;
        return nullptr;
    }

  private:
    template <class Wanted>
    Wanted as() const {
        if constexpr (std::is_same_v<T, Wanted>) return value;
        return Wanted{};
    }

    const char* name;
    T value;
};

bool read(PyObject* object, std::int32_t& value) {
    if (!PyInt_CheckExact(object)) return false;
    value = static_cast<std::int32_t>(PyInt_AS_LONG(object));
    return value == PyInt_AS_LONG(object);
}

bool read(PyObject* object, float& value) {
    if (!PyFloat_CheckExact(object)) return false;
    value = static_cast<float>(PyFloat_AS_DOUBLE(object));
    return true;
}

bool readThree(PyObject* object, float& x, float& y, float& z) {
    return PyTuple_CheckExact(object) && PyTuple_GET_SIZE(object) == 3 && read(PyTuple_GET_ITEM(object, 0), x) &&
           read(PyTuple_GET_ITEM(object, 1), y) && read(PyTuple_GET_ITEM(object, 2), z);
}

bool read(PyObject* object, Vector& value) { return readThree(object, value.x, value.y, value.z); }
bool read(PyObject* object, Color& value) { return readThree(object, value.r, value.g, value.b); }

bool read(PyObject* object, Text& value) {
    if (!PyString_CheckExact(object)) return false;
    const auto size = static_cast<std::size_t>(PyString_GET_SIZE(object)) + 1;
    if (size > sizeof value.characters) return false;
    std::memcpy(value.characters, PyString_AS_STRING(object), size);
    return true;
}

// The value of (code, value), or null.
PyObject* untagged(PyObject* pair, long code) {
    if (!PyTuple_CheckExact(pair) || PyTuple_GET_SIZE(pair) != 2) return nullptr;
    PyObject* tag = PyTuple_GET_ITEM(pair, 0);
    return PyInt_CheckExact(tag) && PyInt_AS_LONG(tag) == code ? PyTuple_GET_ITEM(pair, 1) : nullptr;
}

PyObject* refuse() {
    PyErr_SetString(PyExc_TypeError, "not a tagged value of this kind");
    return nullptr;
}

// Reads the list into a new array, which takes the place of the array of the call before.
template <class T>
PyObject* readList(PyObject* args) {
    static T* current = nullptr;
    PyObject* tagged = PyTuple_GetItem(args, 0);
    PyObject* list = tagged != nullptr ? untagged(tagged, CODE<T>) : nullptr;
    if (list == nullptr || !PyList_CheckExact(list)) return refuse();
    const Py_ssize_t count = PyList_GET_SIZE(list);
    auto* array = static_cast<T*>(kelmo_malloc(static_cast<std::size_t>(count) * sizeof(T)));
    if (array == nullptr) return PyErr_NoMemory();
    for (Py_ssize_t i = 0; i < count; ++i) {
        PyObject* value = untagged(PyList_GET_ITEM(list, i), CODE<T>);
        if (value == nullptr || !read(value, array[i])) {
            kelmo_free(array, 0);
            return refuse();
        }
    }
    kelmo_free(std::exchange(current, array), 0);
    Py_RETURN_NONE;
}

// The same strings, the host's own calls, one new object; the old one goes, as the module's does.
template <class T>
PyObject* setScalar(PyObject* args) {
    // Whose object the plugin carries before the first call.
    static KelmoPluginParameter* ours = nullptr;
    Plugin* plugin = nullptr;
    KelmoPluginParameter* old = valueArgument(args, &plugin);
    if (old == nullptr) return nullptr;
    PyObject* tagged = PyTuple_GetItem(args, 2);
    PyObject* object = tagged != nullptr ? untagged(tagged, CODE<T>) : nullptr;
    T value;
    if (object == nullptr || !read(object, value)) return refuse();
    // The declaration's name outlives every value.
    static const char* declared = nullptr;
    if (old != ours) {
        const ParamTable& table = *plugin->descriptor->params;
        for (std::int32_t i = 0; i < table.count; ++i) {
            if (std::strcmp(table.records[i].name, old->getName()) == 0) declared = table.records[i].name;
        }
    }
    auto* made = new FloorValue<T>(declared, value);
    if (made == nullptr) return PyErr_NoMemory();
    if (plugin->setParameter(made) == 0) {
        delete made;
        return refuse();
    }
    if (old == ours) delete old;
    ours = made;
    Py_RETURN_NONE;
}

}  // namespace

PyObject* setInt(PyObject*, PyObject* args) { return setScalar<std::int32_t>(args); }
PyObject* setFloat(PyObject*, PyObject* args) { return setScalar<float>(args); }
PyObject* setVector(PyObject*, PyObject* args) { return setScalar<Vector>(args); }
PyObject* setColor(PyObject*, PyObject* args) { return setScalar<Color>(args); }
PyObject* setString(PyObject*, PyObject* args) { return setScalar<Text>(args); }
PyObject* readInts(PyObject*, PyObject* args) { return readList<std::int32_t>(args); }
PyObject* readFloats(PyObject*, PyObject* args) { return readList<float>(args); }
PyObject* readVectors(PyObject*, PyObject* args) { return readList<Vector>(args); }

}  // namespace Bench
