// Makes the error records that the core hands out.
#pragma once

#include "kelmo/core/error_record.h"

namespace Offline {

// A record with one reference, held by the caller. `location` (null: not said) is copied. The record takes over
// the caller's reference to `cause` (null: none). The message is a printf format with its values, cut at 511
// characters. Never null: when there is no memory the result is a fixed record that says so, and `cause` is released.
KUtils::ErrorRecord* makeError(const char* location, KUtils::ErrorRecord* cause, const char* format, ...)
    __attribute__((format(printf, 3, 4)));

}  // namespace Offline
