// The entry point of a library. An image may define DllMain and need not.
#include "image.h"

extern "C" {

constexpr unsigned long PROCESS_DETACH = 0;
constexpr unsigned long PROCESS_ATTACH = 1;

int __stdcall DllMain(void* instance, unsigned long reason, void* reserved);
int __stdcall defaultDllMain(void*, unsigned long, void*) { return 1; }
#pragma comment(linker, "/alternatename:DllMain=defaultDllMain")

int __stdcall _DllMainCRTStartup(void* instance, unsigned long reason, void* reserved) {
    if (reason == PROCESS_ATTACH && !startImage()) return 0;
    const int accepted = DllMain(instance, reason, reserved);
    if (reason == PROCESS_DETACH || (reason == PROCESS_ATTACH && accepted == 0)) endImage();
    return accepted;
}
}
