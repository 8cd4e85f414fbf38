// What the host bridge needs of the operating system; one source file for each system.
#pragma once

#include <cstddef>

#include "host/state.h"
#include "kelmo/core/error_record.h"
#include "params/shared_text.h"

namespace KUtils::Python {

// The value of an environment variable as UTF-8, with one reference; null when it is unset or empty, or when
// there is no memory for it.
SharedText* readEnvironment(const char* name);

// Loads a library by its UTF-8 path. On failure null, and `error` receives the system's reason (one reference;
// null when there is no memory for the record).
LibraryHandle loadLib(const char* path, ErrorRecord** error);

// The address of an export, or null.
void* findSymbol(LibraryHandle library, const char* name);

void freeLibrary(LibraryHandle library);

}  // namespace KUtils::Python
