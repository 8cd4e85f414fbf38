// The adapter alone: what each getter reads from a tagged Python value, what fails, and what stays untouched.
#include "param/adapter/python_param.h"

#include <algorithm>

#include "check.h"
#include "expression.h"
#include "frame/py_ref.h"
#include "pending_error.h"

using namespace KUtils;
using namespace KUtils::Python;

namespace {

const char* FLOAT_REQUIRED = "TypeError: a float is required";
const char* INT_REQUIRED = "TypeError: an integer is required";
const char* TOO_LARGE = "OverflowError: Python int too large to convert to C long";
const char* NO_PAIR = "TypeError: a (type code, value) pair is expected, not int";

}  // namespace

TEST_CASE(numbers) {
    struct Row {
        const char* expression;
        int integer;
        double floating;  // getFloat
        double wide;      // getDouble
        bool truth;
        const char* error;
    };
    const Row rows[] = {
        {"(0, 5)", 5, 0, 0, false, ""},
        {"(0, -2147483648)", INT32_MIN, 0, 0, false, ""},
        {"(0, 2147483648)", -1, 0, 0, false, TOO_LARGE},
        {"(0, 2**70)", -1, 0, 0, false, TOO_LARGE},
        {"(0, 7L)", 7, 0, 0, false, ""},
        {"(0, True)", 1, 0, 0, false, ""},
        {"(0, 5.7)", 5, 0, 0, false, ""},
        {"(0, Number())", 7, 0, 0, false, ""},
        {"(0, 'x')", -1, 0, 0, false, INT_REQUIRED},
        {"(0, None)", -1, 0, 0, false, INT_REQUIRED},
        {"(0, Broken())", -1, 0, 0, false, "ValueError: broken int"},
        {"(1, 5)", 0, 5, 0, false, ""},
        {"(1, 0.1)", 0, static_cast<double>(0.1f), 0, false, ""},
        {"(1, 2L**40)", 0, 1099511627776.0, 0, false, ""},
        {"(1, Number())", 0, 1.5, 0, false, ""},
        {"(1, '5')", 0, -1, 0, false, FLOAT_REQUIRED},
        {"(1, Broken())", 0, -1, 0, false, "ValueError: broken float"},
        {"(2, 0.1)", 0, 0, 0.1, false, ""},
        {"(2, 3)", 0, 0, 3, false, ""},
        {"(2, None)", 0, 0, -1, false, FLOAT_REQUIRED},
        {"(3, True)", 0, 0, 0, true, ""},
        {"(3, 0)", 0, 0, 0, false, ""},
        {"(3, 256)", 0, 0, 0, true, ""},
        {"(3, 'x')", 0, 0, 0, true, INT_REQUIRED},
        {"(3, 2**32)", 0, 0, 0, true, TOO_LARGE},
        {"(2**32, 5)", 0, 0, 0, false, TOO_LARGE},
        {"(True, 5)", 0, 5, 0, false, ""},
        {"(1.9, 5)", 0, 5, 0, false, ""},
        {"('0', 5)", 0, 0, 0, false, INT_REQUIRED},
        {"(10, 5)", 0, 0, 0, false, ""},
        {"Pair((0, 5))", 5, 0, 0, false, ""},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.expression);
        const PyRef tagged = python(row.expression);
        const Py_ssize_t references = Py_REFCNT(tagged.get());
        PythonParam param(tagged.get(), "p");
        for (int index : {-1, 0, 5}) {
            CHECK_EQ(param.getInt(index, 1.0), row.integer);
            CHECK_EQ(static_cast<double>(param.getFloat(index, 1.0)), row.floating);
            CHECK_EQ(param.getDouble(index, 1.0), row.wide);
            CHECK_EQ(param.getBool(index, 1.0), row.truth);
        }
        CHECK_EQ(param.getCount(0.0), -1);
        CHECK(param.getString(0, 0.0) == nullptr);
        CHECK_EQ(param.getVector(0, 0.0).x, 0.0f);
        CHECK_EQ(param.getAColor(0, 0.0).alpha, 0.0f);
        CHECK_EQ(param.getTransform(0, 0.0).offset[0], 0.0);
        CHECK_TEXT(takeError().c_str(), row.error);
        CHECK_EQ(Py_REFCNT(tagged.get()), references);
    }
}

TEST_CASE(whatIsNoTaggedValue) {
    struct Row {
        const char* expression;
        const char* error;
    };
    const Row rows[] = {
        {"5", NO_PAIR},
        {"None", "TypeError: a (type code, value) pair is expected, not NoneType"},
        {"[0, 5]", "TypeError: a (type code, value) pair is expected, not list"},
        {"()", "TypeError: a (type code, value) pair is expected, not tuple"},
        {"(0,)", "TypeError: a (type code, value) pair is expected, not tuple"},
        {"(0, 5, 6)", "TypeError: a (type code, value) pair is expected, not tuple"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.expression);
        const PyRef tagged = python(row.expression);
        PythonParam param(tagged.get(), "p");
        CHECK_EQ(static_cast<int>(param.getType(0, 0.0)), -1);
        CHECK_EQ(param.getCount(0.0), -1);
        CHECK_EQ(param.getInt(0, 0.0), 0);
        CHECK_EQ(param.openListImpl(0), ListHandle{0});
        CHECK_TEXT(takeError().c_str(), row.error);
    }
}

TEST_CASE(structuredValues) {
    struct Row {
        const char* expression;
        double numbers[6];  // what stands at chosen places, below
        const char* error;
    };
    const char* NO_TUPLE = "TypeError: a tuple is expected, not list";
    const char* SHORT = "IndexError: tuple index out of range";
    // Vector or colour: the three numbers. AColor: r, g, b, alpha. Matrix: three columns' first, last two numbers of
    // the last. Transform: first number of the matrix, its last, the offset.
    const Row rows[] = {
        {"(4, (1, 2.5, 3L))", {1, 2.5, 3}, ""},
        {"(4, (1, 2, 3, 4))", {1, 2, 3}, ""},
        {"(4, (1, 2))", {1, 2, -1}, SHORT},
        {"(4, (1, 'x', 3))", {1, -1, 3}, FLOAT_REQUIRED},
        {"(4, 5)", {-1, -1, -1}, "TypeError: a tuple is expected, not int"},
        {"(5, (0.5, 0.25, 1))", {0.5, 0.25, 1}, ""},
        {"(6, ((1, 0.5, 0.25), 0.75))", {1, 0.5, 0.25, 0.75}, ""},
        {"(6, (1, 0.5, 0.25, 0.75))", {-1, -1, -1, 0.5}, "TypeError: a tuple is expected, not int"},
        {"(6, ((1, 0.5, 0.25),))", {1, 0.5, 0.25, -1}, SHORT},
        {"(7, ((1, 2, 3), (4, 5, 6), (7, 8, 9)))", {1, 4, 7, 8, 9}, ""},
        {"(7, ((1, 2, 3), [4, 5, 6], (7, 8, 9)))", {1, -1, 7, 8, 9}, NO_TUPLE},
        {"(8, (((1, 0, 0), (0, 1, 0), (0, 0, 2)), (1.5, 0.1, 3.5)))", {1, 2, 1.5, 0.1, 3.5}, ""},
        {"(8, (((1, 0, 0), (0, 1, 0), (0, 0, 2)),))", {1, 2, -1, -1, -1}, SHORT},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.expression);
        const PyRef tagged = python(row.expression);
        PythonParam param(tagged.get(), "p");
        const Vector vector = param.getVector(0, 0.0);
        const Color color = param.getColor(0, 0.0);
        const AColor acolor = param.getAColor(0, 0.0);
        const Matrix matrix = param.getMatrix(0, 0.0);
        const TraceTransform transform = param.getTransform(0, 0.0);
        double read[6] = {};
        switch (param.getType(0, 0.0)) {
            case PARAM_VECTOR: {
                const double values[] = {vector.x, vector.y, vector.z};
                std::copy(values, values + 3, read);
                break;
            }
            case PARAM_COLOR: {
                const double values[] = {color.r, color.g, color.b};
                std::copy(values, values + 3, read);
                break;
            }
            case PARAM_ACOLOR: {
                const double values[] = {acolor.color.r, acolor.color.g, acolor.color.b, acolor.alpha};
                std::copy(values, values + 4, read);
                break;
            }
            case PARAM_MATRIX: {
                const Vector* columns = matrix.columns;
                const double values[] = {columns[0].x, columns[1].x, columns[2].x, columns[2].y, columns[2].z};
                std::copy(values, values + 5, read);
                break;
            }
            default: {
                const Matrix& part = transform.matrix;
                const double values[] = {part.columns[0].x, part.columns[2].z, transform.offset[0], transform.offset[1],
                                         transform.offset[2]};
                std::copy(values, values + 5, read);
            }
        }
        for (int i = 0; i < 6; ++i) CHECK_EQ(read[i], row.numbers[i]);
        // The other kinds stay zero.
        CHECK_EQ(vector.x != 0, param.getType(0, 0.0) == PARAM_VECTOR);
        CHECK_EQ(color.r != 0, param.getType(0, 0.0) == PARAM_COLOR);
        CHECK_EQ(acolor.color.r != 0, param.getType(0, 0.0) == PARAM_ACOLOR);
        CHECK_EQ(matrix.columns[0].x != 0, param.getType(0, 0.0) == PARAM_MATRIX);
        CHECK_EQ(transform.matrix.columns[0].x != 0, param.getType(0, 0.0) == PARAM_TRANSFORM);
        CHECK_EQ(param.getInt(0, 0.0), 0);
        CHECK_TEXT(takeError().c_str(), row.error);
    }
}

TEST_CASE(texts) {
    struct Row {
        const char* expression;
        const char* text;
        bool fails;
    };
    const Row rows[] = {
        {"(9, 'abc')", "abc", false}, {"(9, '')", "", false},          {"(9, u'abc')", "abc", false},
        {"(9, 'a\\0b')", "a", false}, {"(9, '\\xff')", "\xff", false}, {"(9, u'\\xe9')", nullptr, true},
        {"(9, 5)", nullptr, true},    {"(9, None)", nullptr, true},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.expression);
        const PyRef tagged = python(row.expression);
        PythonParam param(tagged.get(), "p");
        CHECK_TEXT(param.getString(0, 0.0), row.text);
        CHECK_EQ(takeError().empty(), !row.fails);
    }
    const PyRef tagged = python("(9, 'abc')");
    PythonParam param(tagged.get(), "p");
    CHECK(param.getString(0, 0.0) == PyString_AS_STRING(PyTuple_GET_ITEM(tagged.get(), 1)));
}

TEST_CASE(ofSeveralErrorsTheFirstStays) {
    const PyRef tagged = python("(4, (Broken(), 'x', Number()))");
    PythonParam param(tagged.get(), "p");
    const Vector vector = param.getVector(0, 0.0);
    CHECK_EQ(vector.x, -1.0f);
    CHECK_EQ(vector.y, -1.0f);
    CHECK_EQ(vector.z, 1.5f);  // read without an error pending
    CHECK_TEXT(takeError().c_str(), "ValueError: broken float");
}
