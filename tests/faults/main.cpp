#include "driver.h"
// The interpreter's header comes first.
#include "check.h"

int main(int argc, char** argv) {
    Py_NoSiteFlag = 1;
    Py_Initialize();
    // The first of everything makes what the interpreter keeps.
    faults::Object(faults::call("_uninit", faults::python("()").get()));
    const int status = check::run(argc, argv);
    Py_Finalize();
    return status;
}
