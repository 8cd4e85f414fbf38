// The error value of the renderer: a reference-counted record with a chain of causes.
#pragma once

#include <cstdint>

namespace KUtils {

// Ownership: whoever is handed a record holds one reference and gives it back with releaseError.
// The deleter owns the record and the record's reference to its cause.
struct ErrorRecord {
    const char* location;  // where it happened; null: not said
    char message[512];     // at most 511 characters
    std::uint32_t code;    // the system's error code, 0: none
    ErrorRecord* cause;    // the next record of the chain, or null
    void (*deleter)(ErrorRecord*);
    std::int32_t references;  // starts at 1; not atomic
};

// Gives one reference back. Null is allowed.
inline void releaseError(ErrorRecord* record) {
    if (record != nullptr && --record->references == 0 && record->deleter != nullptr) record->deleter(record);
}

}  // namespace KUtils
