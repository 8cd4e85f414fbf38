// The interpreter as a program of this build: under a sanitizer the script tests run in it, because the
// system's own is not instrumented.
#include <Python.h>

int main(int argc, char** argv) { return Py_Main(argc, argv); }
