// The call frame around every function of the module.
//
// A function is written with the arguments that it takes (const char*: a string; PyListObject*: a list; PyObject*: any
// object; all borrowed) and is put into the method table through one of three shapes:
//   method     initialisation check, arguments, work; a problem becomes an Exception or a host warning
//   predicate  the same, but whatever goes wrong is the answer False, with no error pending
//   question   arguments first, outside any handler; what goes wrong in the work is the answer False
// A missing argument, or one of another kind, is a TypeError before any work. Further items are not looked at.
#pragma once

#include <cstddef>
#include <tuple>
#include <utility>

#include "frame/problem.h"
#include "frame/py_ref.h"
#include "frame/string_arg.h"
#include "frame/translate_problem.h"
#include "host/state.h"

namespace KUtils::Python {

// Replaces the pending error by the TypeError of argument `index` (from 0) of `function`, which takes `wanted`
// arguments and needs a `kind` there.
void setArgumentError(const char* function, PyObject* args, Py_ssize_t index, Py_ssize_t wanted, const char* kind);

namespace detail {

// Reads one argument; on failure the kind of argument that is needed, with a Python error pending.
inline const char* readArgument(PyObject* args, Py_ssize_t index, const char*& text) {
    return (text = stringArg(args, index)) != nullptr ? nullptr : "str";
}
inline const char* readArgument(PyObject* args, Py_ssize_t index, PyObject*& object) {
    return (object = PyTuple_GetItem(args, index)) != nullptr ? nullptr : "object";
}
inline const char* readArgument(PyObject* args, Py_ssize_t index, PyListObject*& list) {
    PyObject* object = PyTuple_GetItem(args, index);
    if (object == nullptr || !PyList_Check(object)) return "list";
    list = reinterpret_cast<PyListObject*>(object);
    return nullptr;
}

// Reads the arguments in their order; false with a TypeError pending at the first that cannot be read.
template <class... Values, std::size_t... indices>
bool readArguments(const char* function, PyObject* args, std::tuple<Values...>& values,
                   std::index_sequence<indices...>) {
    Py_ssize_t index = -1;
    const char* kind = nullptr;
    const bool complete =
        ((++index, (kind = readArgument(args, indices, std::get<indices>(values))) == nullptr) && ...);
    if (!complete) setArgumentError(function, args, index, sizeof...(Values), kind);
    return complete;
}

// One call of a function with these arguments.
template <class Result, class... Values>
class Call {
  public:
    using Function = Result (*)(Values...);

    bool read(const char* function, PyObject* args) {
        return readArguments(function, args, values, std::index_sequence_for<Values...>());
    }
    Result run(Function function) { return std::apply(function, values); }

  private:
    std::tuple<Values...> values;
};

template <class Result, class... Values>
Call<Result, Values...> callOf(Result (*)(Values...)) {
    return {};
}

}  // namespace detail

template <const char* name, auto function>
PyObject* method(PyObject*, PyObject* args) {
    try {
        ensureInitialized();
        auto call = detail::callOf(function);
        return call.read(name, args) ? call.run(function) : nullptr;
    } catch (const SceneAccessProblem& problem) {
        return translateProblem(problem);
    }
}

template <const char* name, auto function>
PyObject* predicate(PyObject*, PyObject* args) {
    try {
        ensureInitialized();
        auto call = detail::callOf(function);
        if (call.read(name, args)) return newBool(call.run(function));
        PyErr_Clear();
    } catch (...) {
        PyErr_Clear();
    }
    return newBool(false);
}

template <const char* name, auto function>
PyObject* question(PyObject*, PyObject* args) {
    auto call = detail::callOf(function);
    if (!call.read(name, args)) return nullptr;
    try {
        return newBool(call.run(function));
    } catch (...) {
        PyErr_Clear();
        return newBool(false);
    }
}

}  // namespace KUtils::Python
