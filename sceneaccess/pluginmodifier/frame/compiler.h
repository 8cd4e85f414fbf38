// What compilers spell differently.
#pragma once

// A function whose `formatIndex`-th argument is a printf format for the values from the `firstValue`-th on.
#if defined(__GNUC__)
#define PRINTF_FORMAT(formatIndex, firstValue) __attribute__((format(printf, formatIndex, firstValue)))
#else
#define PRINTF_FORMAT(formatIndex, firstValue)
#endif

// Asks for the memory at `address`, which need not be readable, ahead of its use.
#if defined(__GNUC__) || defined(__clang__)
#define PREFETCH(address) __builtin_prefetch(address)
#else
#define PREFETCH(address) static_cast<void>(address)
#endif

// The module's entry. On Windows the module-definition file exports it.
#if defined(_WIN32)
#define MODULE_ENTRY extern "C"
#else
#define MODULE_ENTRY extern "C" __attribute__((visibility("default")))
#endif
