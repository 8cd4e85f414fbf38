// The entry point of a console program.
#include "image.h"

extern "C" {

int main(int, char**);
int __cdecl _configure_narrow_argv(int mode);
int __cdecl _initialize_narrow_environment();
int* __cdecl __p___argc();
char*** __cdecl __p___argv();
[[noreturn]] void __cdecl exit(int);

void __cdecl mainCRTStartup() {
    constexpr int UNEXPANDED_ARGUMENTS = 1;
    _configure_narrow_argv(UNEXPANDED_ARGUMENTS);
    _initialize_narrow_environment();
    if (!startImage()) exit(255);
    const int result = main(*__p___argc(), *__p___argv());
    endImage();
    exit(result);
}
}
