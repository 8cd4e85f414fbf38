// What the reading of Python objects stands on: nulls, references, the texts of errors, lists that are too long.
#include "param/adapter/python_conversions.h"

#include <string>

#include "check.h"
#include "expression.h"
#include "frame/py_ref.h"
#include "param/adapter/conversion_error.h"
#include "param/adapter/python_param.h"
#include "param/setting/fast_fill.h"
#include "params/list/list_params.h"

using namespace KUtils;
using namespace KUtils::Python;

TEST_CASE(nullIsReadAsNothing) {
    CHECK(!isList(nullptr));
    CHECK(!isTagged(nullptr));
    CHECK(tupleItem(nullptr, 0) == nullptr);
    CHECK_EQ(intOf(nullptr), -1);
    CHECK_EQ(doubleOf(nullptr), -1.0);
    CHECK(textOf(nullptr) == nullptr);
    CHECK(PyErr_Occurred() == nullptr);
}

TEST_CASE(aHoleIsNoPair) {
    CHECK(taggedValue(nullptr) == nullptr);
    CHECK(PyErr_ExceptionMatches(PyExc_TypeError));
    PyErr_Clear();
    CHECK_EQ(taggedCode(nullptr), -1);
    CHECK(PyErr_ExceptionMatches(PyExc_TypeError));
    PyErr_Clear();
}

TEST_CASE(aValueThatIsNoReferenceNeedsNoPlaceForAnOutput) {
    const PyRef tagged = python("(0, 5)");
    PythonParam param(tagged.get(), "p");
    CHECK(param.getPlugin(0, 0.0, nullptr) == nullptr);
    const PyRef items = python("(0, [(0, 5)])");
    PythonParam listParam(items.get(), "p");
    CHECK(listParam.getPlugin(0, 0.0, nullptr) == nullptr);
    CHECK(PyErr_Occurred() == nullptr);
}

TEST_CASE(anAssignedReferenceGivesTheOldOneBack) {
    const PyRef shared = python("['shared']");
    Py_INCREF(shared.get());
    PyRef held = PyRef::steal(shared.get());
    held = python("['another']");
    CHECK_EQ(Py_REFCNT(shared.get()), 1);
    CHECK_EQ(Py_REFCNT(held.get()), 1);
    // The last reference to an object ends it.
    Py_INCREF(shared.get());
    PyList_SetItem(held.get(), 0, shared.get());
    CHECK_EQ(Py_REFCNT(shared.get()), 2);
    held = PyRef();
    CHECK_EQ(Py_REFCNT(shared.get()), 1);
    CHECK(!held);
}

namespace {

// The text of the pending error once it has been taken.
std::string takenText() {
    ConversionError error;
    CHECK(!error);
    error.take();
    CHECK(static_cast<bool>(error));
    CHECK(PyErr_Occurred() == nullptr);
    const std::string text = error.text();
    CHECK(PyErr_Occurred() == nullptr);
    return text;
}

}  // namespace

TEST_CASE(theTextOfAnError) {
    PyErr_SetString(PyExc_ValueError, "the reason");
    CHECK_TEXT(takenText().c_str(), "the reason");
    PyErr_SetString(PyExc_ValueError, "");
    CHECK_TEXT(takenText().c_str(), "ValueError");
    PyErr_SetNone(PyExc_ValueError);
    CHECK_TEXT(takenText().c_str(), "ValueError");
    const struct {
        const char* type;
        const char* value;
        const char* text;
    } rows[] = {
        {"type('Mute', (Exception,), {'__module__': 'a.b', '__str__': lambda self: 1 / 0})", "Type()", "Mute"},
        {"__import__('types').ClassType('Old', (), {'__str__': lambda self: ''})", "Type()", "Old"},
        {"__import__('types').ClassType('Old', (), {'__str__': lambda self: 'old words'})", "Type()", "old words"},
        {"'no class'", "''", "unknown error"},  // only C code can raise these two
        {"int", "''", "unknown error"},
    };
    for (const auto& row : rows) {
        CHECK_ROW(row.type);
        const PyRef type = python(row.type);
        const PyRef value =
            row.value[0] == 'T' ? PyRef::steal(PyObject_CallObject(type.get(), nullptr)) : python(row.value);
        Py_INCREF(type.get());
        Py_INCREF(value.get());
        PyErr_Restore(type.get(), value.get(), nullptr);
        CHECK_TEXT(takenText().c_str(), row.text);
    }
}

// Nobody has the memory for such a list, so one item claims to be as many.
TEST_CASE(aListBeyondTheCountOfAValueIsLeftAlone) {
    const PyRef list = python("[(0, 5)]");
    DefIntListParam target("p", false);
    auto& settable = *static_cast<KelmoSettableParamInterface*>(target.getInterface(EXT_SETTABLE_PARAM));
    settable.setCount(3);
    Py_SIZE(list.get()) = Py_ssize_t{INT32_MAX} + 1;
    CHECK(!fastFill(target, settable, PARAM_INT, list.get()));
    Py_SIZE(list.get()) = 1;
    CHECK_EQ(target.getCount(0.0), 3);
    CHECK(fastFill(target, settable, PARAM_INT, list.get()));
    CHECK_EQ(target.getCount(0.0), 1);
    CHECK_EQ(target.getInt(0, 0.0), 5);
}
