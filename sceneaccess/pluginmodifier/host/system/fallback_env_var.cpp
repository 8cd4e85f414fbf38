#include "host/system/fallback_env_var.h"

#include <cstdio>

#include "host/system/system.h"

namespace KUtils::Python {

FallbackEnvVar::FallbackEnvVar(const char* primaryName, const char* deprecatedName, const char* defaultValue)
    : primary(primaryName),
      deprecated(deprecatedName),
      fallback(makeSharedText(defaultValue)),
      current(nullptr),
      resolved(0) {}

FallbackEnvVar::~FallbackEnvVar() {
    releaseText(current);
    releaseText(fallback);
}

SharedText* FallbackEnvVar::resolve(DeprecationLogger logger) {
    if (resolved == 0) {
        read(logger);
        resolved = 1;
    }
    return retainText(current);
}

void FallbackEnvVar::read(DeprecationLogger logger) {
    char message[1024];
    current = readEnvironment(primary);
    if (current != nullptr) {
        if (logger == nullptr) return;
        SharedText* unused = readEnvironment(deprecated);
        if (unused == nullptr) return;
        releaseText(unused);
        std::snprintf(message, sizeof message,
                      "Deprecated environment variable defined \"%s\". Its value will not be used in favor of \"%s\".",
                      deprecated, primary);
        logger(message);
        return;
    }
    current = readEnvironment(deprecated);
    if (current == nullptr) {
        current = retainText(fallback);
        return;
    }
    if (logger == nullptr) return;
    std::snprintf(message, sizeof message,
                  "Deprecated environment variable \"%s\" used as fallback. Please prefer using \"%s\".", deprecated,
                  primary);
    logger(message);
}

}  // namespace KUtils::Python
