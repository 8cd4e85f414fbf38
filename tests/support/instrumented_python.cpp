// The interpreter as a program of this build: under a sanitizer the script tests run in it, because the
// system's own is not instrumented.
#include <Python.h>

// The interpreter keeps its own objects at its end. In the debug interpreter they all come from these functions,
// and memory of the module, the core and the host never does, so no leak of theirs is hidden.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:PyObject_Malloc\n"
           "leak:PyObject_Realloc\n"
           "leak:PyMem_Malloc\n"
           "leak:PyMem_Realloc\n"
           "leak:PyThread_allocate_lock\n";
}

// Keys of the owned-value set's packed entries are unaligned.
extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() { return "use_unaligned=1:print_suppressions=0"; }

int main(int argc, char** argv) { return Py_Main(argc, argv); }
