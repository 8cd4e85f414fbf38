// What makes a function findable in the host library by its name.
#pragma once

#if defined(_WIN32)
#define OFFLINE_EXPORT __declspec(dllexport)
#else
#define OFFLINE_EXPORT __attribute__((visibility("default")))
#endif
