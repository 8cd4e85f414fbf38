// Wine 8.0's winnt.h defines _InterlockedCompareExchange128, which is a builtin of clang for this target
// and cannot be defined. It gets another name while the header is read.
#ifndef WINDOWS_WINNT_WRAPPER
#define WINDOWS_WINNT_WRAPPER
#define _InterlockedCompareExchange128 unusedInterlockedCompareExchange128
#include_next <winnt.h>
#undef _InterlockedCompareExchange128
#endif
