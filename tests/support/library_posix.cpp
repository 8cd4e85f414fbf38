#include <dlfcn.h>

#include <cstdlib>

#include "support/library.h"

namespace support {

void* openLibrary(const std::string& path, std::string& error) {
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library != nullptr) return library;
    const char* text = dlerror();
    error = text != nullptr ? text : "";
    return nullptr;
}

void* findSymbol(void* library, const char* name) { return dlsym(library, name); }

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool setEnvironment(const char* name, const char* value) {
    return (value != nullptr ? setenv(name, value, 1) : unsetenv(name)) == 0;
}

}  // namespace support
