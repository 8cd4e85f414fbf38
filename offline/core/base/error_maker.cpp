#include "core/base/error_maker.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "core/base/counters.h"
#include "core/core_api.h"
#include "kelmo/core/allocator.h"

namespace Offline {
namespace {

using KUtils::ErrorRecord;

// Handed out when there is no memory for a record. It has no deleter, so giving it back does nothing.
ErrorRecord outOfMemory = {nullptr, "out of memory", 0, nullptr, nullptr, 1};

void deleteRecord(ErrorRecord* record) {
    KUtils::releaseError(record->cause);
    kelmo_free(const_cast<char*>(record->location), 0);
    kelmo_free(record, sizeof(ErrorRecord));
    ++counters.errorsFreed;
}

char* copyOf(const char* text) {
    if (text == nullptr) return nullptr;
    const std::size_t bytes = std::strlen(text) + 1;
    auto* copy = static_cast<char*>(kelmo_malloc(bytes));
    if (copy != nullptr) std::memcpy(copy, text, bytes);
    return copy;
}

}  // namespace

ErrorRecord* makeError(const char* location, ErrorRecord* cause, const char* format, ...) {
    auto* record = static_cast<ErrorRecord*>(kelmo_malloc(sizeof(ErrorRecord)));
    if (record == nullptr) {
        KUtils::releaseError(cause);
        outOfMemory.references = 1;
        return &outOfMemory;
    }
    *record = ErrorRecord{copyOf(location), "", 0, cause, deleteRecord, 1};
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(record->message, sizeof record->message, format, values);
    va_end(values);
    ++counters.errorsMade;
    return record;
}

ErrorRecord* makeErrorText(const char* location, ErrorRecord* cause, const char* text) {
    return makeError(location, cause, "%s", text);
}

}  // namespace Offline
