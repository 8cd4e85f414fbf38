// The adapter on lists: by index, by descent, and how deep they may be nested.
#include "check.h"
#include "expression.h"
#include "frame/py_ref.h"
#include "param/adapter/nesting.h"
#include "param/adapter/python_param.h"
#include "pending_error.h"

using namespace KUtils;
using namespace KUtils::Python;

TEST_CASE(listsByIndexAndByDescent) {
    const PyRef tagged = python("(12, [(0, 1), (1, 2.0), (12, [(0, 5), (12, [(9, 'deep')])]), 7])");
    PythonParam param(tagged.get(), "name");
    CHECK_TEXT(param.getName(), "name");
    CHECK_EQ(param.getCount(0.0), 4);
    const int types[] = {0, 1, 12, -1};
    for (int i = 0; i < 4; ++i) CHECK_EQ(static_cast<int>(param.getType(i, 0.0)), types[i]);
    CHECK_TEXT(takeError().c_str(), "TypeError: a (type code, value) pair is expected, not int");
    for (int outside : {-1, 4, INT32_MAX, INT32_MIN}) {
        CHECK_EQ(static_cast<int>(param.getType(outside, 0.0)), 10000);
        CHECK_EQ(param.getInt(outside, 0.0), 0);
        CHECK_EQ(param.openListImpl(outside), ListHandle{0});
        CHECK_EQ(param.getCount(0.0), 4);
    }
    CHECK_EQ(param.getInt(0, 0.0), 1);
    CHECK_EQ(param.getInt(1, 0.0), 0);
    CHECK_EQ(param.getFloat(1, 0.0), 2.0f);

    const ListHandle outer = param.openList(2);
    CHECK(outer == reinterpret_cast<ListHandle>(tagged.get()));
    CHECK_EQ(param.getCount(0.0), 2);
    CHECK_EQ(param.getInt(0, 0.0), 5);
    const ListHandle inner = param.openListImpl(1);
    CHECK_TEXT(param.getString(0, 0.0), "deep");
    param.closeList(0);
    CHECK_EQ(param.getCount(0.0), 1);
    param.closeList(inner);
    CHECK_EQ(param.getCount(0.0), 2);
    const ListHandle scalar = param.openListImpl(0);
    CHECK_EQ(param.getCount(0.0), -1);
    CHECK_EQ(param.getInt(9, 0.0), 5);
    param.closeList(scalar);
    param.closeList(outer);
    CHECK_EQ(param.getCount(0.0), 4);
    const ListHandle noPair = param.openListImpl(3);
    CHECK_EQ(param.getCount(0.0), -1);
    takeError();
    param.closeList(noPair);
    CHECK_EQ(param.getFloatList(0.0).count, 0);
    CHECK(takeError().empty());

    const PyRef subclassed = python("(0, Items([(0, 3)]))");
    PythonParam items(subclassed.get(), "p");
    CHECK_EQ(items.getCount(0.0), 1);
    CHECK_EQ(items.getInt(0, 0.0), 3);
}

namespace {

// [(12, [(12, ... [(0, 1)] ...)])]: `levels` lists.
PyRef nested(int levels) {
    PyRef list = python("[(0, 1)]");
    for (int i = 1; i < levels; ++i) list = PyRef::steal(Py_BuildValue("[(iN)]", 12, list.release()));
    return list;
}

// `levels` lists, each of which stands twice in the one above.
PyRef doubling(int levels) {
    PyRef list = python("[(0, 1)]");
    for (int i = 1; i < levels; ++i) {
        list = PyRef::steal(Py_BuildValue("[(iO)(iO)]", 12, list.get(), 12, list.get()));
    }
    return list;
}

}  // namespace

// A type code that is a script's own work may empty the list in which it stands.
TEST_CASE(aListThatIsEmptiedWhileATypeIsRead) {
    const PyRef made = python(
        "(lambda values: [values.append((type('Code', (object,), "
        "{'__int__': lambda self: values.__delslice__(0, 9) or 0})(), 2)), values[0], (0, values)])([])");
    PythonParam param(PyList_GetItem(made.get(), 2), "name");
    CHECK_EQ(param.getCount(0.0), 1);
    CHECK_EQ(param.getInt(0, 0.0), 0);
    CHECK_EQ(param.getCount(0.0), 0);
    CHECK(PyErr_Occurred() == nullptr);
}

TEST_CASE(nestingBounds) {
    CHECK(hasBoundedNesting(nested(1).get()));
    CHECK(hasBoundedNesting(nested(64).get()));
    CHECK(!hasBoundedNesting(nested(65).get()));
    CHECK(hasBoundedNesting(doubling(20).get()));
    CHECK(!hasBoundedNesting(doubling(60).get()));
    // A shallow list that is met again deeper down.
    const PyRef deep = nested(63);
    const PyRef twice = PyRef::steal(Py_BuildValue("[(iO)(i[(iO)])]", 12, deep.get(), 12, 12, deep.get()));
    CHECK(!hasBoundedNesting(twice.get()));

    for (int copies : {1, 2, 1000}) {
        const PyRef list = python("[]");
        for (int i = 0; i < copies; ++i) {
            const PyRef element = PyRef::steal(Py_BuildValue("(iO)", 12, list.get()));
            PyList_Append(list.get(), element.get());
        }
        CHECK(!hasBoundedNesting(list.get()));
        PyList_SetSlice(list.get(), 0, copies, nullptr);  // breaks the circle
    }
}
