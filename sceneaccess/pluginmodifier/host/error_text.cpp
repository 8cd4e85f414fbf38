#include "host/error_text.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "kelmo/core/allocator.h"

namespace KUtils::Python {

namespace {

void deleteRecord(ErrorRecord* record) {
    releaseError(record->cause);
    kelmo_free(record, sizeof(ErrorRecord));
}

// Appends what fits and keeps the terminator.
void append(char* buffer, std::size_t size, const char* text) {
    const std::size_t used = std::strlen(buffer);
    std::snprintf(buffer + used, size - used, "%s", text);
}

}  // namespace

ErrorRecord* makeErrorRecord(const char* location, std::uint32_t code, ErrorRecord* cause, const char* format, ...) {
    auto* record = static_cast<ErrorRecord*>(kelmo_malloc(sizeof(ErrorRecord)));
    if (record == nullptr) {
        releaseError(cause);
        return nullptr;
    }
    record->location = location;
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(record->message, sizeof record->message, format, values);
    va_end(values);
    record->code = code;
    record->cause = cause;
    record->deleter = deleteRecord;
    record->references = 1;
    return record;
}

void errorText(const ErrorRecord* record, char* buffer, std::size_t size) {
    if (size == 0) return;
    buffer[0] = 0;
    if (record == nullptr) append(buffer, size, "No error");
    for (const ErrorRecord* first = record; record != nullptr; record = record->cause) {
        if (record != first) append(buffer, size, " | ");
        if (record->location != nullptr) {
            append(buffer, size, "[");
            append(buffer, size, record->location);
            append(buffer, size, "] ");
        }
        append(buffer, size, record->message);
    }
}

}  // namespace KUtils::Python
