#include "core/scene_file/records/line_error.h"

#include "core/base/error_maker.h"
#include "core/scene_file/json/json_text.h"

namespace Offline {

KUtils::ErrorRecord* lineError(const char* file, std::uint64_t line, std::size_t column, const std::string& place,
                               const std::string& message) {
    KUtils::ErrorRecord* chain = makeError(nullptr, nullptr, "%s", message.c_str());
    if (!place.empty()) chain = makeError(nullptr, chain, "%s", place.c_str());
    return makeError(file, chain, "line %llu, column %llu", static_cast<unsigned long long>(line),
                     static_cast<unsigned long long>(column));
}

std::string suggestion(const char* nearest) {
    return nearest != nullptr ? " (did you mean " + quoted(nearest) + "?)" : std::string();
}

}  // namespace Offline
