#include "texts.h"

namespace offlinehost {

namespace {

PyObject* asString(const std::string& text) {
    return PyString_FromStringAndSize(text.data(), static_cast<Py_ssize_t>(text.size()));
}

template <class Convert>
PyObject* converted(const Texts& texts, Convert convert) {
    PyObject* list = PyList_New(static_cast<Py_ssize_t>(texts.size()));
    for (std::size_t i = 0; list != nullptr && i < texts.size(); ++i) {
        PyObject* item = convert(texts[i]);
        if (item == nullptr) {
            Py_CLEAR(list);
        } else {
            PyList_SET_ITEM(list, static_cast<Py_ssize_t>(i), item);
        }
    }
    return list;
}

}  // namespace

void keepText(void* user, const char* text, std::size_t length) {
    static_cast<Texts*>(user)->emplace_back(text, length);
}

PyObject* joined(const Texts& texts) {
    std::string all;
    for (const std::string& text : texts) all += text;
    return asString(all);
}

PyObject* listOf(const Texts& texts) { return converted(texts, asString); }

PyObject* parsedList(const Texts& texts) { return converted(texts, parsed); }

PyObject* parsed(const std::string& text) {
    PyObject* json = PyImport_ImportModule("json");
    if (json == nullptr) return nullptr;
    PyObject* value = PyObject_CallMethod(json, const_cast<char*>("loads"), const_cast<char*>("s#"), text.data(),
                                          static_cast<int>(text.size()));
    Py_DECREF(json);
    return value;
}

}  // namespace offlinehost
