// Calls the module's functions directly, as the interpreter would, but from C++.
#pragma once

#include "frame/python.h"
// The interpreter's header comes first.
#include <cstdint>
#include <string>

namespace faults {

// Owns one reference to an object; null is allowed.
class Object {
  public:
    explicit Object(PyObject* taken) : object(taken) {}
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    ~Object() { Py_XDECREF(object); }
    PyObject* get() const { return object; }

  private:
    PyObject* object;
};

// The object that a Python expression gives.
Object python(const char* expression);

// Calls a function of the module with this tuple of arguments; a new reference, or null with an error pending.
PyObject* call(const char* function, PyObject* arguments);

// The text of the pending error, which is pending no more; empty when there is none.
std::string takeErrorText();

// What a call must leave as it was.
struct Counts {
    std::int64_t blocks;  // of the core's heap
    Py_ssize_t none;      // references to None, True and False
    std::int64_t all;     // references, where the interpreter counts them; else 0
    int recursion;        // how deep the interpreter believes itself
};
Counts countsNow();
bool countsAllReferences();

}  // namespace faults
