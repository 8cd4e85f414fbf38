// The interpreter as a program of this build, for what the system's own does not offer: under a sanitizer it is
// instrumented, and for valgrind (see plain_heap.cpp) every object of Python's is a block of its own.
#include <Python.h>

int main(int argc, char** argv) { return Py_Main(argc, argv); }
