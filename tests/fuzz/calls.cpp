// Sequences of all 23 functions against a model of the scene; see calls_run.py.
#include "python/python_harness.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::startPython("calls_run");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::runPython(data, size);
    return 0;
}
