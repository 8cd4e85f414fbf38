// Lists with holes, which only C can make: what the adapter reads where a list has no object.
#include "check.h"
#include "expression.h"
#include "param/adapter/python_param.h"
#include "stub_host.h"

using namespace KUtils;
using namespace KUtils::Python;

namespace {

// (12, [<NULL>, (0, 5)])
PyRef listWithHole() {
    PyObject* list = PyList_New(2);
    PyList_SET_ITEM(list, 1, python("(0, 5)").release());
    return PyRef::steal(Py_BuildValue("(iN)", 12, list));
}

}  // namespace

TEST_CASE(aHoleIsAnElementWithoutAType) {
    const PyRef tagged = listWithHole();
    PythonParam param(tagged.get(), "p");
    CHECK_EQ(param.getCount(0.0), 2);
    CHECK_EQ(static_cast<int>(param.getType(0, 0.0)), -1);
    CHECK(PyErr_ExceptionMatches(PyExc_TypeError));
    CHECK_EQ(param.getInt(0, 0.0), 0);
    CHECK(param.getString(0, 0.0) == nullptr);
    CHECK_EQ(param.getInt(1, 0.0), 5);
    const char* output = "before";
    CHECK(param.getPlugin(0, 0.0, &output) == nullptr);
    CHECK_TEXT(output, nullptr);
    PyErr_Clear();
}

TEST_CASE(aHoleIsDescendedInto) {
    const PyRef tagged = listWithHole();
    PythonParam param(tagged.get(), "p");
    const ListHandle handle = param.openListImpl(0);
    CHECK(handle == reinterpret_cast<ListHandle>(tagged.get()));
    CHECK_EQ(param.getCount(0.0), -1);
    CHECK_EQ(static_cast<int>(param.getType(0, 0.0)), -1);
    CHECK_EQ(param.openListImpl(0), ListHandle{0});
    CHECK(param.getPlugin(0, 0.0, nullptr) == nullptr);
    param.closeList(handle);
    CHECK_EQ(param.getCount(0.0), 2);
    PyErr_Clear();
}
