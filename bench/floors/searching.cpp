// Searching: an enumeration that touches each name, and the same search through other matchers.
#include <fnmatch.h>
#include <re2/re2.h>

#include <string>

#include "floors.h"
#include "host.h"

namespace Bench {

using namespace KUtils;

namespace {

class TouchNames final : public EnumPluginCallback {
  public:
    int process(Plugin* plugin) override {
        sum += static_cast<unsigned char>(*pluginName(plugin));
        return 1;
    }

    long sum = 0;
};

// The names that a matcher takes, as a list.
template <class Matcher>
class Search final : public EnumPluginCallback {
  public:
    Search(PyObject* result, const Matcher& wanted) : list(result), matcher(wanted) {}

    int process(Plugin* plugin) override {
        const char* name = pluginName(plugin);
        if (!matcher(name)) return 1;
        PyObject* text = PyString_FromString(name);
        if (text != nullptr) PyList_Append(list, text);
        Py_XDECREF(text);
        return 1;
    }

  private:
    PyObject* list;
    const Matcher& matcher;
};

template <class Matcher>
PyObject* search(const Matcher& matcher) {
    PyObject* list = PyList_New(0);
    if (list == nullptr) return nullptr;
    Search<Matcher> callback(list, matcher);
    manager()->pluginManager->enumPlugins(&callback);
    return list;
}

// The textbook's scan: byte by byte, and back to behind the last star when a byte does not fit.
bool matchesPlainly(const char* pattern, const char* subject) {
    const char* afterStar = nullptr;
    const char* retry = nullptr;
    while (*subject != 0) {
        if (*pattern == '*') {
            afterStar = ++pattern;
            retry = subject;
        } else if (*pattern == *subject || *pattern == '?') {
            ++pattern;
            ++subject;
        } else if (afterStar != nullptr) {
            pattern = afterStar;
            subject = ++retry;
        } else {
            return false;
        }
    }
    while (*pattern == '*') ++pattern;
    return *pattern == 0;
}

std::string expressionOf(const char* pattern) {
    std::string expression;
    for (; *pattern != 0; ++pattern) {
        if (*pattern == '*') {
            expression += ".*";
        } else if (*pattern == '?') {
            expression += '.';
        } else {
            expression += RE2::QuoteMeta(re2::StringPiece(pattern, 1));
        }
    }
    return expression;
}

}  // namespace

PyObject* fill(PyObject*, PyObject* args) {
    const char* type = nullptr;
    PyObject* names = nullptr;
    if (!PyArg_ParseTuple(args, "sO!", &type, &PyList_Type, &names)) return nullptr;
    for (Py_ssize_t i = 0; i < PyList_GET_SIZE(names); ++i) {
        const char* name = PyString_AsString(PyList_GET_ITEM(names, i));
        bool existed = false;
        if (name == nullptr) return nullptr;
        Plugin* plugin = manager()->createPlugin(name, type, existed, false, false, false);
        if (plugin == nullptr || existed) return PyErr_Format(PyExc_RuntimeError, "%.200s could not be made", name);
    }
    Py_RETURN_NONE;
}

PyObject* touchNames(PyObject*, PyObject*) {
    TouchNames touch;
    manager()->pluginManager->enumPlugins(&touch);
    return PyInt_FromLong(touch.sum);
}

PyObject* searchPlain(PyObject*, PyObject* args) {
    const char* pattern = textArgument(args, 0);
    if (pattern == nullptr) return nullptr;
    return search([pattern](const char* name) { return matchesPlainly(pattern, name); });
}

PyObject* searchFnmatch(PyObject*, PyObject* args) {
    const char* pattern = textArgument(args, 0);
    if (pattern == nullptr) return nullptr;
    return search([pattern](const char* name) { return ::fnmatch(pattern, name, FNM_NOESCAPE) == 0; });
}

PyObject* searchRe2(PyObject*, PyObject* args) {
    const char* pattern = textArgument(args, 0);
    if (pattern == nullptr) return nullptr;
    RE2::Options options;
    options.set_encoding(RE2::Options::EncodingLatin1);
    options.set_dot_nl(true);
    const RE2 expression(expressionOf(pattern), options);
    return search([&expression](const char* name) { return RE2::FullMatch(name, expression); });
}

}  // namespace Bench
