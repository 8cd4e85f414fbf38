#include "check.h"
#include "frame/python.h"

int main(int argc, char** argv) {
    Py_NoSiteFlag = 1;
    Py_Initialize();
    const int result = check::run(argc, argv);
    Py_Finalize();
    return result;
}
