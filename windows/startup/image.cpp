// Static constructors, atexit and the compiler's marks, which every image carries itself.
#include "image.h"

// The linker sorts the sections by name, so the functions that the compiler registers lie between these
// marks: first (XI) those that may fail, then (XC) the constructors.
#pragma section(".CRT$XIA", long, read)
#pragma section(".CRT$XIZ", long, read)
#pragma section(".CRT$XCA", long, read)
#pragma section(".CRT$XCZ", long, read)

extern "C" {

int _fltused = 0x9875;  // the compiler refers to it wherever floating point is used

__declspec(allocate(".CRT$XIA")) IntFunction firstInitializer[] = {nullptr};
__declspec(allocate(".CRT$XIZ")) IntFunction endOfInitializers[] = {nullptr};
__declspec(allocate(".CRT$XCA")) VoidFunction firstConstructor[] = {nullptr};
__declspec(allocate(".CRT$XCZ")) VoidFunction endOfConstructors[] = {nullptr};

// The C run-time keeps the functions; the table belongs to the image.
struct ExitTable {
    VoidFunction *first, *last, *end;
};
int __cdecl _initialize_onexit_table(ExitTable*);
int __cdecl _register_onexit_function(ExitTable*, IntFunction);
int __cdecl _execute_onexit_table(ExitTable*);

static ExitTable exitTable;

int __cdecl atexit(VoidFunction function) {
    return _register_onexit_function(&exitTable, reinterpret_cast<IntFunction>(function));
}

bool startImage() {
    if (_initialize_onexit_table(&exitTable) != 0) return false;
    for (IntFunction* entry = firstInitializer; entry < endOfInitializers; ++entry) {
        if (*entry != nullptr && (*entry)() != 0) return false;
    }
    for (VoidFunction* entry = firstConstructor; entry < endOfConstructors; ++entry) {
        if (*entry != nullptr) (*entry)();
    }
    return true;
}

void endImage() { _execute_onexit_table(&exitTable); }
}
