// The interpreter's own memory: each call of the module to it that can find none does so in turn, alone and with all
// that follow. The linker hands these calls, and nobody else's, to this test. The call then ends in an error, or in the
// answer of those that swallow errors, and leaves nothing behind.
#include "driver.h"
// The interpreter's header comes first.
#include <string>

#include "check.h"
#include "stub/stub_renderer.h"
#include "stub/stub_value.h"
#include "test_allocator.h"

using namespace faults;

namespace {

int asked = 0;        // calls since the plan was made
int refusedCall = 0;  // 1: the first; 0: none
bool refusedFromThenOn = false;

bool isRefused() {
    ++asked;
    if (refusedCall == 0 || asked < refusedCall || (asked > refusedCall && !refusedFromThenOn)) return false;
    PyErr_NoMemory();
    return true;
}

}  // namespace

// With --wrap the linker takes __wrap_X for X, and X for __real_X.
#define REFUSABLE(result, failure, name, parameters, arguments) WRAPPED(result, failure, name, parameters, arguments)
#define WRAPPED(result, failure, name, parameters, arguments) \
    result __real_##name parameters;                          \
    result __wrap_##name parameters;                          \
    result __wrap_##name parameters { return isRefused() ? failure : __real_##name arguments; }

extern "C" {
REFUSABLE(PyObject*, nullptr, PyTuple_New, (Py_ssize_t size), (size))
REFUSABLE(PyObject*, nullptr, PyList_New, (Py_ssize_t size), (size))
REFUSABLE(int, -1, PyList_Append, (PyObject * list, PyObject* item), (list, item))
REFUSABLE(PyObject*, nullptr, PyFloat_FromDouble, (double number), (number))
REFUSABLE(PyObject*, nullptr, PyInt_FromLong, (long number), (number))
REFUSABLE(PyObject*, nullptr, PyLong_FromLong, (long number), (number))
REFUSABLE(PyObject*, nullptr, PyString_FromString, (const char* text), (text))
REFUSABLE(int, -1, PyString_AsStringAndSize, (PyObject * object, char** text, Py_ssize_t* size), (object, text, size))
REFUSABLE(int, -1, PyUnicode_SetDefaultEncoding, (const char* name), (name))
}

namespace {

struct Row {
    const char* function;
    const char* arguments;
    const char* outcome = "MemoryError";  // of a refused call
};

// Arguments that cannot be read are of the wrong kind, whatever the reason.
const Row rows[] = {
    {"_create", "('Thing', 'new')"},
    {"_getPluginType", "('thing',)"},
    {"_unique", "(u'thing',)", "TypeError"},
    {"_pluginExists", "(u'thing',)", "False"},
    {"_paramExists", "(u'thing', u'int')", "False"},
    {"_delete", "(u'thing',)", "TypeError"},
    {"_getPluginParams", "('thing', 0)"},
    {"_getPluginParams", "('thing', 1)"},
    {"_getTypeParams", "('Thing',)"},
    {"_getParamType", "('thing', 'ints')"},
    {"_exportTexture", "('thing',)"},
    {"_duplicate", "('thing', 'copy')"},
    {"_findByName", "('*',)"},
    {"_findByType", "('Thin?',)"},
    {"_getParam", "('thing', 'given')"},
};

// One call in a world of its own; true when something was refused.
bool runOnce(const Row& row, int refused, bool fromThenOn, bool counted = true) {
    bool wasRefused = false;
    Counts before;
    {
        const Object arguments = python(row.arguments);
        before = countsNow();
        stub::World world;
        const Object none(call("_init", arguments.get()));
        asked = 0;
        refusedCall = refused;
        refusedFromThenOn = fromThenOn;
        PyObject* result = call(row.function, arguments.get());
        wasRefused = refused != 0 && asked >= refused;
        refusedCall = 0;
        {
            const Object held(result);
            PyObject* error = PyErr_Occurred();
            const std::string outcome = error != nullptr     ? PyExceptionClass_Name(error)
                                        : result == Py_False ? "False"
                                                             : "done";
            CHECK_EQ(error != nullptr, result == nullptr);
            if (wasRefused) CHECK_TEXT(outcome.substr(outcome.rfind('.') + 1).c_str(), row.outcome);
            if (!wasRefused) CHECK(outcome == "done" || result == Py_False);
            PyErr_Clear();
        }
        // Refused when it was to be put back.
        CHECK_EQ(PyUnicode_SetDefaultEncoding("ascii"), 0);
        const Object again = python("('other',)");
        const Object type(call("_getPluginType", again.get()));
        CHECK_TEXT(type.get() != nullptr ? PyString_AsString(type.get()) : nullptr, "Thing");
        const Object ended(call("_uninit", arguments.get()));
    }
    const Counts after = countsNow();
    CHECK_EQ(after.blocks, before.blocks);
    CHECK_EQ(test_allocator::counters().wrongFrees, 0);
    if (counted) CHECK_EQ(after.none, before.none);
    CHECK_EQ(after.recursion, before.recursion);
    return wasRefused;
}

void refuseEach(const Row& row) {
    const std::string label = std::string(row.function) + row.arguments;
    CHECK_ROW(label.c_str());
    runOnce(row, 0, false, false);  // makes what the interpreter keeps
    const int needed = asked;
    for (const bool fromThenOn : {false, true}) {
        for (int nth = 1; runOnce(row, nth, fromThenOn); ++nth) CHECK(nth <= needed + 1);
    }
    CHECK_ROW(nullptr);
}

}  // namespace

TEST_CASE(everyFunctionWithoutTheInterpretersMemory) {
    for (const Row& row : rows) refuseEach(row);
}

TEST_CASE(everyKindOfValueWithoutTheInterpretersMemory) {
    for (const stub::Carried& carried : stub::carriedValues()) {
        const std::string arguments = "('thing', '" + std::string(carried.name) + "')";
        refuseEach({"_getParam", arguments.c_str()});
    }
}

// Objects that a refused call had already made are given back. A debug interpreter counts all references.
TEST_CASE(noObjectIsLeftOfARefusedCall) {
    if (!countsAllReferences()) return;
    for (const stub::Carried& carried : stub::carriedValues()) {
        const std::string arguments = "('thing', '" + std::string(carried.name) + "')";
        const Row row{"_getParam", arguments.c_str()};
        CHECK_ROW(arguments.c_str());
        for (int nth = 1;; ++nth) {
            runOnce(row, nth, false);  // makes what the interpreter keeps
            const std::int64_t before = countsNow().all;
            if (!runOnce(row, nth, false)) break;
            CHECK_EQ(countsNow().all, before);
        }
    }
}
