#include <dlfcn.h>

#include <cstdlib>

#include "host/error_text.h"
#include "host/system/system.h"

namespace KUtils::Python {

SharedText* readEnvironment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr && value[0] != 0 ? makeSharedText(value) : nullptr;
}

LibraryHandle loadLib(const char* path, ErrorRecord** error) {
    LibraryHandle library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) {
        // The loader tells its reason once, and has no code for it.
        *error = makeErrorRecord("loadLib", 0, nullptr, "LoadLibrary failed (%i): %s", 0, dlerror());
    }
    return library;
}

void* findSymbol(LibraryHandle library, const char* name) { return dlsym(library, name); }

void freeLibrary(LibraryHandle library) { dlclose(library); }

}  // namespace KUtils::Python
