#include "param/setting/fast_fill.h"

#include "frame/compiler.h"
#include "param/setting/read_exact.h"

namespace KUtils::Python {

namespace {

// The elements of a long list are in no cache: each is on its way while those before it are read.
constexpr int LONG_LIST = 20000;
constexpr int ELEMENTS_AHEAD = 16;

// Reads every element and hands it to `store(value, index)`.
template <class T, class Store>
bool readAll(PyObject* list, std::int32_t code, Store store) {
    const auto count = static_cast<int>(PyList_GET_SIZE(list));
    ExactTag tag(code);
    for (int i = 0; i < count; ++i) {
        PyObject* value = tag.valueOf(PyList_GET_ITEM(list, i));
        T read;
        if (value == nullptr || !readExact(value, read)) return false;
        store(read, i);
    }
    return true;
}

// Into the list's own array; not when there was no memory for it.
template <class T>
bool readInto(const ListView<T>& array, PyObject* list, std::int32_t code) {
    if (array.count != PyList_GET_SIZE(list)) return false;
    const int fetchedAhead = array.count < LONG_LIST ? 0 : array.count - ELEMENTS_AHEAD;
    ExactTag tag(code);
    for (int i = 0; i < array.count; ++i) {
        if (i < fetchedAhead) PREFETCH(PyList_GET_ITEM(list, i + ELEMENTS_AHEAD));
        PyObject* value = tag.valueOf(PyList_GET_ITEM(list, i));
        // In place: what is half read is written anew by the walk.
        if (value == nullptr || !readExact(value, array.data[i])) return false;
    }
    return true;
}

}  // namespace

bool fastFill(KelmoPluginParameter& target, KelmoSettableParamInterface& settable, std::int32_t code, PyObject* list) {
    if (PyList_GET_SIZE(list) > INT32_MAX) return false;
    settable.setCount(static_cast<int>(PyList_GET_SIZE(list)));
    switch (code) {
        case PARAM_INT:
            return readInto(target.getIntList(0.0), list, code);
        case PARAM_FLOAT:
            return readInto(target.getFloatList(0.0), list, code);
        case PARAM_VECTOR:
            return readInto(target.getVectorList(0.0), list, code);
        case PARAM_COLOR:
            return readInto(target.getColorList(0.0), list, code);
        case PARAM_DOUBLE:
            return readAll<double>(list, code, [&](double value, int i) { settable.setDouble(value, i, 0.0); });
        case PARAM_ACOLOR:
            return readAll<AColor>(list, code, [&](const AColor& value, int i) { settable.setAColor(value, i, 0.0); });
        case PARAM_MATRIX:
            return readAll<Matrix>(list, code, [&](const Matrix& value, int i) { settable.setMatrix(value, i, 0.0); });
        case PARAM_TRANSFORM:
            return readAll<Transform>(list, code,
                                      [&](const Transform& value, int i) { settable.setTransform(value, i, 0.0); });
        case PARAM_STRING:
            return readAll<const char*>(list, code,
                                        [&](const char* value, int i) { settable.setString(value, i, 0.0); });
        default:
            return false;
    }
}

}  // namespace KUtils::Python
