// An environment variable with a deprecated second name and a default.
#pragma once

#include <cstdint>

#include "params/shared_text.h"

namespace KUtils::Python {

// Receives a finished message about the use of a deprecated name.
using DeprecationLogger = void (*)(const char* message);

// Resolved once, on first use. Plain fields in a fixed order; the texts hold references.
class FallbackEnvVar {
  public:
    FallbackEnvVar(const char* primaryName, const char* deprecatedName, const char* defaultValue);
    FallbackEnvVar(const FallbackEnvVar&) = delete;
    FallbackEnvVar& operator=(const FallbackEnvVar&) = delete;
    ~FallbackEnvVar();

    // The primary variable, else the deprecated one, else the default; an empty variable counts as unset. The
    // caller gets a reference of its own; null when there was no memory.
    SharedText* resolve(DeprecationLogger logger);

  private:
    void read(DeprecationLogger logger);

    const char* primary;
    const char* deprecated;
    SharedText* fallback;
    SharedText* current;
    std::int32_t resolved;
};

}  // namespace KUtils::Python
