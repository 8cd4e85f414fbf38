// offlinehost: the offline host's control table as a Python 2.7 module, for script tests.
//
// The host is loaded at the first call, from the root that the environment names, or by load(path).
// Failures raise offlinehost.Error with the host's own words. The host is never unloaded.
#include "python.h"
// The interpreter's header comes first.
#include "host_table.h"
#include "method_table.h"
#include "support/library.h"
#include "texts.h"

namespace {

using offlinehost::keepText;
using offlinehost::Texts;

PyObject* errorType = nullptr;

// What was observed since the last call of events(); never destroyed, the host may outlive everything.
Texts& observed() {
    static Texts& texts = *new Texts;
    return texts;
}

PyObject* raise(const std::string& text) {
    PyErr_SetString(errorType, text.c_str());
    return nullptr;
}

// The table, or null with the Python error set.
const OfflineControl* host() {
    std::string error;
    const OfflineControl* table = offlinehost::hostTable({}, error);
    if (table == nullptr) raise(error);
    return table;
}

PyObject* none() { Py_RETURN_NONE; }

// What a call that answers a status becomes.
PyObject* noneOrError(const OfflineControl* table, int status) {
    return status == 0 ? none() : raise(table->lastError());
}

PyObject* load(PyObject*, PyObject* args) {
    const char* path = "";
    if (!PyArg_ParseTuple(args, "|s:load", &path)) return nullptr;
    std::string error;
    return offlinehost::hostTable(path, error) != nullptr ? none() : raise(error);
}

PyObject* path(PyObject*, PyObject*) {
    return host() != nullptr ? PyString_FromString(offlinehost::hostPath().c_str()) : nullptr;
}

PyObject* addTypes(PyObject*, PyObject* args) {
    const char* folder = nullptr;
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTuple(args, "s:add_types", &folder) || (table = host()) == nullptr) return nullptr;
    return noneOrError(table, table->addTypes(folder));
}

PyObject* types(PyObject*, PyObject* args) {
    const char* name = nullptr;
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTuple(args, "|z:types", &name) || (table = host()) == nullptr) return nullptr;
    Texts texts;
    if (table->types(name, keepText, &texts) != 0) return raise(table->lastError());
    return offlinehost::parsedList(texts);
}

PyObject* open(PyObject*, PyObject* args) {
    const char* file = nullptr;
    const char* shownName = nullptr;
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTuple(args, "s|z:open", &file, &shownName) || (table = host()) == nullptr) return nullptr;
    return noneOrError(table, table->open(file, shownName));
}

PyObject* openText(PyObject*, PyObject* args) {
    const char* text = nullptr;
    int length = 0;
    const char* shownName = "scene";
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTuple(args, "s#|s:open_text", &text, &length, &shownName) || (table = host()) == nullptr)
        return nullptr;
    return noneOrError(table, table->openText(text, static_cast<std::size_t>(length), shownName));
}

PyObject* save(PyObject*, PyObject* args) {
    const char* file = nullptr;
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTuple(args, "s:save", &file) || (table = host()) == nullptr) return nullptr;
    return noneOrError(table, table->save(file));
}

PyObject* text(PyObject*, PyObject*) {
    const OfflineControl* table = host();
    if (table == nullptr) return nullptr;
    Texts texts;
    if (table->saveText(keepText, &texts) != 0) return raise(table->lastError());
    return offlinehost::joined(texts);
}

PyObject* extraText(PyObject*, PyObject* args) {
    int index = 0;
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTuple(args, "|i:extra_text", &index) || (table = host()) == nullptr) return nullptr;
    Texts texts;
    if (table->saveExtraText(index, keepText, &texts) != 0) return raise(table->lastError());
    return offlinehost::joined(texts);
}

PyObject* snapshot(PyObject*, PyObject*) {
    const OfflineControl* table = host();
    return table != nullptr ? noneOrError(table, table->snapshot()) : nullptr;
}

PyObject* changes(PyObject*, PyObject*) {
    const OfflineControl* table = host();
    if (table == nullptr) return nullptr;
    Texts texts;
    if (table->changes(keepText, &texts) != 0) return raise(table->lastError());
    return offlinehost::parsedList(texts);
}

PyObject* reset(PyObject*, PyObject*) {
    const OfflineControl* table = host();
    if (table == nullptr) return nullptr;
    observed().clear();
    return noneOrError(table, table->reset());
}

PyObject* end(PyObject*, PyObject*) {
    const OfflineControl* table = host();
    if (table == nullptr) return nullptr;
    Texts texts;
    // What is left alive stands in the report; the status says no more.
    table->end(keepText, &texts);
    return texts.empty() ? raise(table->lastError()) : offlinehost::parsed(texts.back());
}

PyObject* observe(PyObject*, PyObject* args) {
    int wanted = 1;
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTuple(args, "|i:observe", &wanted) || (table = host()) == nullptr) return nullptr;
    observed().clear();
    table->observe(wanted != 0 ? keepText : nullptr, &observed());
    return none();
}

PyObject* events(PyObject*, PyObject*) {
    PyObject* list = offlinehost::listOf(observed());
    observed().clear();
    return list;
}

PyObject* warnings(PyObject*, PyObject* args, PyObject* keywords) {
    static const char* names[] = {"clear", nullptr};
    int clear = 1;
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTupleAndKeywords(args, keywords, "|i:warnings", const_cast<char**>(names), &clear) ||
        (table = host()) == nullptr)
        return nullptr;
    Texts texts;
    table->warnings(keepText, &texts);
    if (clear != 0) table->clearWarnings();
    return offlinehost::listOf(texts);
}

PyObject* echoWarnings(PyObject*, PyObject* args) {
    int echo = 1;
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTuple(args, "|i:echo_warnings", &echo) || (table = host()) == nullptr) return nullptr;
    table->echoWarnings(echo);
    return none();
}

void keepCounter(void* user, const char* name, std::uint64_t value) {
    auto* dict = static_cast<PyObject*>(user);
    PyObject* number = PyInt_FromSize_t(static_cast<std::size_t>(value));
    // A failure leaves the Python error set; the caller looks.
    if (number == nullptr) return;
    PyDict_SetItemString(dict, name, number);
    Py_DECREF(number);
}

PyObject* counters(PyObject*, PyObject*) {
    const OfflineControl* table = host();
    PyObject* dict = table != nullptr ? PyDict_New() : nullptr;
    if (dict == nullptr) return nullptr;
    table->counters(keepCounter, dict);
    if (PyErr_Occurred() != nullptr) Py_CLEAR(dict);
    return dict;
}

PyObject* failAllocation(PyObject*, PyObject* args, PyObject* keywords) {
    static const char* names[] = {"n", "persistent", nullptr};
    unsigned PY_LONG_LONG nth = 0;
    int persistent = 0;
    const OfflineControl* table = nullptr;
    if (!PyArg_ParseTupleAndKeywords(args, keywords, "K|i:fail_allocation", const_cast<char**>(names), &nth,
                                     &persistent) ||
        (table = host()) == nullptr)
        return nullptr;
    table->failAllocation(nth, persistent);
    return none();
}

PyObject* setEnvironment(PyObject*, PyObject* args) {
    const char* name = nullptr;
    const char* value = nullptr;
    if (!PyArg_ParseTuple(args, "sz:set_environment", &name, &value)) return nullptr;
    return support::setEnvironment(name, value) ? none() : raise(std::string("could not set ") + name);
}

// An error that a function left pending although it returned a value would surface at an unrelated place.
PyObject* takePendingError(PyObject*, PyObject*) {
    if (PyErr_Occurred() == nullptr) return none();
    PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    PyObject* shown = PyObject_Repr(value);
    Py_XDECREF(type);
    Py_XDECREF(value);
    Py_XDECREF(traceback);
    return shown;
}

PyObject* tableOfMethods(PyObject*, PyObject* function) { return methodTable(function); }

// METH_KEYWORDS functions stand in the table as if they took two arguments.
PyCFunction withKeywords(PyCFunctionWithKeywords function) {
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
}

PyMethodDef functions[] = {
    {"load", load, METH_VARARGS, "load([path]): loads the host library; later calls must name the same one."},
    {"path", path, METH_NOARGS, "path() -> the path of the loaded host library."},
    {"add_types", addTypes, METH_VARARGS, "add_types(folder): adds the plugin types of a folder."},
    {"types", types, METH_VARARGS, "types([name]) -> a list of the catalogue's types, each a dict."},
    {"open", open, METH_VARARGS, "open(path[, shown_name]): reads a scene into the main scene."},
    {"open_text", openText, METH_VARARGS, "open_text(text[, shown_name]): the same from a str."},
    {"save", save, METH_VARARGS, "save(path): writes the main scene to a file."},
    {"text", text, METH_NOARGS, "text() -> the main scene as it would be saved."},
    {"extra_text", extraText, METH_VARARGS, "extra_text([index]) -> an extra scene's text; 0 is the newest."},
    {"snapshot", snapshot, METH_NOARGS, "snapshot(): remembers the main scene for changes()."},
    {"changes", changes, METH_NOARGS, "changes() -> a list of dicts: what changed since snapshot()."},
    {"reset", reset, METH_NOARGS, "reset(): back to the state after loading."},
    {"end", end, METH_NOARGS, "end() -> a dict: what was freed, and what is left alive. Only reset may follow."},
    {"observe", observe, METH_VARARGS, "observe([wanted]): keeps every call that the host receives for events()."},
    {"events", events, METH_NOARGS, "events() -> the calls since the last events(), oldest first."},
    {"warnings", withKeywords(warnings), METH_VARARGS | METH_KEYWORDS,
     "warnings(clear=True) -> the warnings since the last reset or clearing."},
    {"echo_warnings", echoWarnings, METH_VARARGS, "echo_warnings([flag]): whether warnings go to stderr."},
    {"counters", counters, METH_NOARGS, "counters() -> a dict of every counter."},
    {"fail_allocation", withKeywords(failAllocation), METH_VARARGS | METH_KEYWORDS,
     "fail_allocation(n, persistent=False): lets the n-th allocation from now fail; 0: none."},
    {"set_environment", setEnvironment, METH_VARARGS,
     "set_environment(name, value or None): sets a variable where the module reads it."},
    {"take_pending_error", takePendingError, METH_NOARGS,
     "take_pending_error() -> the repr of a Python error that a call left behind, or None."},
    {"method_table", tableOfMethods, METH_O,
     "method_table(function) -> (name, flags, docstring) of it and of those behind it in its module's table."},
    {nullptr, nullptr, 0, nullptr},
};

}  // namespace

PyMODINIT_FUNC initofflinehost() {
    PyObject* module = Py_InitModule3("offlinehost", functions, "Drives the offline host from a script test.");
    if (module == nullptr) return;
    errorType = PyErr_NewException(const_cast<char*>("offlinehost.Error"), nullptr, nullptr);
    if (errorType == nullptr) return;
    Py_INCREF(errorType);
    PyModule_AddObject(module, "Error", errorType);
}
