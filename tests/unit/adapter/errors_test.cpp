// Of several conversions that fail the first one's error stays pending, and none is while a script's own code runs.
#include "check.h"
#include "expression.h"
#include "param/adapter/python_param.h"

using namespace KUtils;
using namespace KUtils::Python;

TEST_CASE(theFirstErrorStays) {
    struct Row {
        const char* expression;  // its first element leaves an error
        ParamType type;          // of the second
        double number;           // that is read from it; of a vector its last number
    };
    const Row rows[] = {
        {"(12, [(1, Broken()), (0, 'x')])", PARAM_INT, -1},
        {"(12, [(1, Broken()), (0, 2**40)])", PARAM_INT, -1},
        {"(12, [(1, Broken()), (0, Loops())])", PARAM_INT, 7},
        {"(12, [(1, Broken()), (1, 'x')])", PARAM_FLOAT, -1},
        {"(12, [(1, Broken()), (1, Loops())])", PARAM_FLOAT, 7},
        {"(12, [(1, Broken()), (9, 5)])", PARAM_STRING, 0},
        {"(12, [(1, Broken()), (4, 5)])", PARAM_VECTOR, -1},
        {"(12, [(1, Broken()), (4, (1, 2))])", PARAM_VECTOR, -1},
        {"(12, [(1, Broken()), ('x', 5)])", static_cast<ParamType>(-1), 0},
        {"(12, [(1, Broken()), 5])", static_cast<ParamType>(-1), 0},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.expression);
        const PyRef tagged = python(row.expression);
        PythonParam param(tagged.get(), "p");
        CHECK_EQ(param.getFloat(0, 0.0), -1.0f);
        CHECK_EQ(static_cast<int>(param.getType(1, 0.0)), static_cast<int>(row.type));
        double number = param.getInt(1, 0.0);
        if (row.type == PARAM_FLOAT) number = static_cast<double>(param.getFloat(1, 0.0));
        if (row.type == PARAM_VECTOR) number = static_cast<double>(param.getVector(1, 0.0).z);
        CHECK_EQ(number, row.number);
        CHECK(param.getString(1, 0.0) == nullptr);

        PyObject *type = nullptr, *value = nullptr, *traceback = nullptr;
        PyErr_Fetch(&type, &value, &traceback);
        const PyRef heldType = PyRef::steal(type), heldValue = PyRef::steal(value);
        const PyRef heldTraceback = PyRef::steal(traceback), text = PyRef::steal(PyObject_Str(value));
        CHECK_TEXT(PyString_AsString(text.get()), "broken float");
    }
}
