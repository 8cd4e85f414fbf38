// The interpreter's header comes first.
#include "offlinehost/python.h"

#include "python_harness.h"

#include <cstdlib>
#include <string>

#include "input.h"

namespace {

PyObject* runFunction = nullptr;

void requirePython(bool holds, const char* what) {
    if (holds) return;
    if (PyErr_Occurred() != nullptr) PyErr_Print();
    fuzz::found(FUZZ_SOURCE, 0, what);
}

}  // namespace

extern "C" __attribute__((visibility("default"))) const char* __asan_default_options() { return "detect_leaks=0"; }

namespace fuzz {

void startPython(const char* name) {
    const std::string build = FUZZ_BUILD;
    const std::string source = FUZZ_SOURCE;
    ::setenv("KELMO_FOR_MAYA2020_MAIN", (build + "/stage").c_str(), 1);
    Py_NoSiteFlag = 1;
    Py_DontWriteBytecodeFlag = 1;
    Py_InitializeEx(0);
    PyObject* path = PySys_GetObject(const_cast<char*>("path"));
    for (const std::string& folder : {source + "/script", source + "/script/values", source + "/fuzz/python",
                                      build + "/tests/python", build + "/stage/python"}) {
        PyObject* text = PyString_FromString(folder.c_str());
        requirePython(text != nullptr && PyList_Insert(path, 0, text) == 0, "the search path is set");
        Py_DECREF(text);
    }
    PyObject* module = PyImport_ImportModule(name);
    requirePython(module != nullptr, "the fuzzer's module is there");
    runFunction = PyObject_GetAttrString(module, "run");
    requirePython(runFunction != nullptr, "it has a function run");
}

void runPython(const std::uint8_t* data, std::size_t size) {
    PyObject* result = PyObject_CallFunction(runFunction, const_cast<char*>("s#"), data, static_cast<int>(size));
    requirePython(result != nullptr, "run() raises nothing");
    Py_DECREF(result);
}

}  // namespace fuzz
