// Tagged values into _setParam and back through _getParam, against the model of tests/script; see set_param_run.py.
#include "python/python_harness.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::startPython("set_param_run");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::runPython(data, size);
    return 0;
}
