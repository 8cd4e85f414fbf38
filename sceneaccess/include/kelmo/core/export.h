// What the renderer core library (kelmo.dll, libkelmo.so) exports and everybody else imports.
#pragma once

#if defined(_WIN32)
#if defined(KELMO_CORE_BUILD)
#define KELMO_CORE_API __declspec(dllexport)
#else
#define KELMO_CORE_API __declspec(dllimport)
#endif
#define KELMO_SHARED_TYPE
#else
#define KELMO_CORE_API __attribute__((visibility("default")))
// A class that is thrown across libraries must be the same type in all of them.
#define KELMO_SHARED_TYPE __attribute__((visibility("default")))
#endif
