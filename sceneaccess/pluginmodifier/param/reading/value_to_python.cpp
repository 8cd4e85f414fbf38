#include "param/reading/value_to_python.h"

#include "frame/py_ref.h"
#include "kelmo/plugin/plugin.h"
#include "param/setting/build_value.h"

namespace KUtils::Python {

namespace {

constexpr double TIME = 0.0;

// The referenced plugin's name, or (name, output); null without an error when nothing is referenced.
PyObject* pluginRefToPython(KelmoPluginParameter& value, int index) {
    const char* outputName = nullptr;
    const PluginBase* plugin = value.getPlugin(index, TIME, &outputName);
    // A constant value answers itself, to stand in for a texture; it has no plugin's name.
    if (plugin == nullptr || plugin == &value) return nullptr;
    return outputName != nullptr ? buildOutputReference(pluginName(plugin), outputName) : newString(pluginName(plugin));
}

// Element `index` of a view that is taken for this one read and released after it; zero outside a shorter view.
template <class T>
T viewElement(const ListView<T>& view, int index) {
    const T element = view.data != nullptr && index < view.count ? view.data[index] : T{};
    if (view.shared != nullptr) releaseView(view);
    return element;
}

// A new list of the elements at the cursor, each made by `convert(index)`; a null without an error becomes an element
// as it stands. The collector does not see the list before it is filled.
template <class Convert>
PyObject* listToPython(KelmoPluginParameter& value, int count, const Convert& convert) {
    PyRef list = PyRef::steal(PyList_New(count > 0 ? count : 0));
    if (!list) return nullptr;
    PyObject_GC_UnTrack(list.get());
    const Py_ssize_t size = PyList_GET_SIZE(list.get());
    for (int i = 0; i < size && i < value.getCount(TIME); ++i) {
        PyObject* element = convert(i);
        if (element == nullptr && PyErr_Occurred() != nullptr) return nullptr;
        PyList_SET_ITEM(list.get(), i, element);
    }
    PyObject_GC_Track(list.get());
    return list.release();
}

// Element `index` of a flat list, by type code; each gives a new object.
PyObject* intElement(KelmoPluginParameter& v, int i) { return PyInt_FromLong(viewElement(v.getIntList(TIME), i)); }
PyObject* floatElement(KelmoPluginParameter& v, int i) {
    return PyFloat_FromDouble(viewElement(v.getFloatList(TIME), i));
}
PyObject* doubleElement(KelmoPluginParameter& v, int i) { return PyFloat_FromDouble(v.getDouble(i, TIME)); }
PyObject* boolElement(KelmoPluginParameter& v, int i) { return newBool(viewElement(v.getIntList(TIME), i) != 0); }
PyObject* vectorElement(KelmoPluginParameter& v, int i) { return buildFloats(viewElement(v.getVectorList(TIME), i)); }
PyObject* colorElement(KelmoPluginParameter& v, int i) { return buildFloats(viewElement(v.getColorList(TIME), i)); }
PyObject* acolorElement(KelmoPluginParameter& v, int i) { return buildFloats(v.getAColor(i, TIME)); }
PyObject* matrixElement(KelmoPluginParameter& v, int i) { return buildFloats(v.getMatrix(i, TIME)); }
PyObject* transformElement(KelmoPluginParameter& v, int i) { return buildFloats(v.getTransform(i, TIME)); }
PyObject* stringElement(KelmoPluginParameter& v, int i) { return newString(v.getString(i, TIME)); }
PyObject* pluginElement(KelmoPluginParameter& v, int i) {
    PyObject* reference = pluginRefToPython(v, i);
    return reference == nullptr && PyErr_Occurred() == nullptr ? newNone() : reference;
}

// One converter for each element type code from 0 to 10, with a loop of its own.
template <PyObject* (*element)(KelmoPluginParameter&, int)>
PyObject* flatList(KelmoPluginParameter& value, int count) {
    return listToPython(value, count, [&value](int i) { return element(value, i); });
}

using ListConverter = PyObject* (*)(KelmoPluginParameter& value, int count);

constexpr ListConverter listElementConverters[] = {
    flatList<intElement>,       flatList<floatElement>,  flatList<doubleElement>, flatList<boolElement>,
    flatList<vectorElement>,    flatList<colorElement>,  flatList<acolorElement>, flatList<matrixElement>,
    flatList<transformElement>, flatList<stringElement>, flatList<pluginElement>,
};
constexpr int CONVERTER_COUNT = sizeof listElementConverters / sizeof *listElementConverters;

// One level of the interpreter's recursion, also when a foreign exception leaves it.
class RecursionLevel {
  public:
    RecursionLevel() : entered(Py_EnterRecursiveCall(" while reading a parameter value") == 0) {}
    RecursionLevel(const RecursionLevel&) = delete;
    RecursionLevel& operator=(const RecursionLevel&) = delete;
    ~RecursionLevel() {
        if (entered) Py_LeaveRecursiveCall();
    }
    // False with a Python error pending: too deep.
    explicit operator bool() const { return entered; }

  private:
    bool entered;
};

// What element `index` holds. Its level is closed again, also when reading it raises; closing may raise too.
PyObject* openedElementToPython(KelmoPluginParameter& value, int code, int index) {
    const ListHandle handle = value.openListImpl(index);
    PyRef element;
    try {
        element = PyRef::steal(valueToPython(value, code, index));
    } catch (...) {
        value.closeList(handle);
        throw;
    }
    value.closeList(handle);
    return element.release();
}

PyObject* nestedListToPython(KelmoPluginParameter& value, int count) {
    const RecursionLevel level;
    if (!level) return nullptr;
    PyObject* list = listToPython(value, count, [&value](int i) {
        const int elementCode = value.getType(i, TIME);
        return openedElementToPython(value, elementCode, i);
    });
    return makeTagged(PARAM_LIST, list);
}

PyObject* typedListToPython(KelmoPluginParameter& value, int code, int count) {
    if (code < 0 || code >= CONVERTER_COUNT) return newNone();
    return makeTagged(code, listElementConverters[code](value, count));
}

PyObject* referenceToPython(KelmoPluginParameter& value, int index) {
    PyObject* reference = pluginRefToPython(value, index);
    if (reference == nullptr) return PyErr_Occurred() == nullptr ? newNone() : nullptr;
    return makeTagged(
        PyTuple_Check(reference) ? static_cast<int>(PARAM_OUTPUT_TEXTURE) : static_cast<int>(PARAM_PLUGIN), reference);
}

PyObject* singleToPython(KelmoPluginParameter& value, int code, int index) {
    switch (code) {
        case PARAM_INT:
            return makeTagged(PARAM_INT, PyInt_FromLong(value.getInt(index, TIME)));
        case PARAM_FLOAT:
            return makeTagged(PARAM_FLOAT, PyFloat_FromDouble(value.getFloat(index, TIME)));
        case PARAM_DOUBLE:
            return makeTagged(PARAM_FLOAT, PyFloat_FromDouble(value.getDouble(index, TIME)));
        case PARAM_BOOL:
            return makeTagged(PARAM_BOOL, newBool(value.getBool(index, TIME)));
        case PARAM_VECTOR:
            return makeTagged(PARAM_VECTOR, buildFloats(value.getVector(index, TIME)));
        case PARAM_COLOR:
            return makeTagged(PARAM_COLOR, buildFloats(value.getColor(index, TIME)));
        case PARAM_ACOLOR:
            return makeTagged(PARAM_ACOLOR, buildFloats(value.getAColor(index, TIME)));
        case PARAM_MATRIX:
            return makeTagged(PARAM_MATRIX, buildFloats(value.getMatrix(index, TIME)));
        case PARAM_TRANSFORM:
            return makeTagged(PARAM_TRANSFORM, buildFloats(value.getTransform(index, TIME)));
        case PARAM_STRING:
            return makeTagged(PARAM_STRING, newString(value.getString(index, TIME)));
        case PARAM_PLUGIN:
        case PARAM_TEXTURE:
        case PARAM_TEXTURE_FLOAT:
        case PARAM_TEXTURE_INT:
        case PARAM_TEXTURE_VECTOR:
        case PARAM_TEXTURE_MATRIX:
        case PARAM_TEXTURE_TRANSFORM:
            return referenceToPython(value, index);
        default:
            return nullptr;
    }
}

}  // namespace

PyObject* valueToPython(KelmoPluginParameter& value, int code, int index) {
    if (code == PARAM_UNKNOWN) return nullptr;
    const int count = value.getCount(TIME);
    if (count == -1) return singleToPython(value, code, index);
    return code == PARAM_LIST ? nestedListToPython(value, count) : typedListToPython(value, code, count);
}

PyObject* defaultToPython(const ParamDesc& record) {
    switch (record.type) {
        case PARAM_INT:
        case PARAM_TEXTURE_INT:
            return makeTagged(PARAM_INT, PyInt_FromLong(record.defaultInt));
        case PARAM_FLOAT:
        case PARAM_TEXTURE_FLOAT:
            return makeTagged(PARAM_FLOAT, PyFloat_FromDouble(record.defaultFloat));
        case PARAM_DOUBLE:
            return makeTagged(PARAM_FLOAT, PyFloat_FromDouble(record.defaultDouble));
        case PARAM_VECTOR:
        case PARAM_TEXTURE_VECTOR:
            return makeTagged(PARAM_VECTOR, buildFloats(record.defaultVector));
        case PARAM_COLOR:
            return makeTagged(PARAM_COLOR, buildFloats(record.defaultColor));
        case PARAM_ACOLOR:
        case PARAM_TEXTURE:
            return makeTagged(PARAM_ACOLOR, buildFloats(record.defaultAColor));
        case PARAM_MATRIX:
        case PARAM_TEXTURE_MATRIX:
            return makeTagged(PARAM_MATRIX, buildFloats(record.defaultMatrix));
        case PARAM_TRANSFORM:
        case PARAM_TEXTURE_TRANSFORM:
            return makeTagged(PARAM_TRANSFORM, buildFloats(record.defaultTransform));
        case PARAM_STRING:
            return makeTagged(PARAM_STRING, newString(record.defaultString));
        default:
            return newNone();  // also a bool: its default is not handed out
    }
}

}  // namespace KUtils::Python
