// Loading a library by path, and the process environment, as the tests need them. One source per
// system. Texts are UTF-8.
#pragma once

#include <string>

namespace support {

// The library's handle, or null with the system's text in `error`. It is never freed.
void* openLibrary(const std::string& path, std::string& error);

// The address of an export, or null.
void* findSymbol(void* library, const char* name);

// A variable of the C runtime's environment, as the module reads it; empty when it is not set.
std::string environment(const char* name);

// Sets a variable there, or removes it (null). False when the system refuses.
bool setEnvironment(const char* name, const char* value);

}  // namespace support
