// Making and rendering error records.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "frame/compiler.h"
#include "kelmo/core/error_record.h"

namespace KUtils::Python {

struct ErrorRelease {
    void operator()(ErrorRecord* record) const { releaseError(record); }
};
// Owns one reference to an error record.
using ErrorRef = std::unique_ptr<ErrorRecord, ErrorRelease>;

// A new record in the core's heap with one reference, which takes over the reference to `cause`; null when there
// is no memory. `location` is kept as given.
ErrorRecord* makeErrorRecord(const char* location, std::uint32_t code, ErrorRecord* cause, const char* format, ...)
    PRINTF_FORMAT(4, 5);

// Renders the chain as "[location] message | [location] message", cut to `size` bytes and terminated; "No error"
// without a record.
void errorText(const ErrorRecord* record, char* buffer, std::size_t size);

}  // namespace KUtils::Python
