#include "session/host_end.h"

#include <fmt/format.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

#include "output/standard_output.h"
#include "text/json_text.h"

namespace {

bool endsWith(const char* name, const char* ending) {
    const size_t length = std::strlen(name), tail = std::strlen(ending);
    return length >= tail && std::strcmp(name + length - tail, ending) == 0;
}

// "blocks_leaked 1, bytes_leaked 104": what of the report tells of something wrong.
std::string leftovers(const rapidjson::Document& report) {
    std::string text;
    for (const auto& entry : report.GetObject()) {
        const char* name = entry.name.GetString();
        const bool counts = endsWith(name, "_leaked") || std::strncmp(name, "misuse_", 7) == 0;
        if (!counts || !entry.value.IsUint64() || entry.value.GetUint64() == 0) continue;
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ", name, entry.value.GetUint64());
    }
    return text;
}

std::uint64_t number(const rapidjson::Document& report, const char* name) {
    const auto entry = report.FindMember(name);
    return entry != report.MemberEnd() && entry->value.IsUint64() ? entry->value.GetUint64() : 0;
}

}  // namespace

void endHost(Host& host, bool scriptSucceeded) {
    std::string line;
    if (host.end(line)) return;
    const rapidjson::Document report = parseJson(line);
    // A module that was not told to stop keeps one record.
    const bool onlyAccess = number(report, "accesses_open") > 0 && number(report, "blocks_leaked") == 1 &&
                            number(report, "values_leaked") == 0;
    if (!onlyAccess) {
        writeError(fmt::format("kelmo-offline: left alive at the end: {}\n", leftovers(report)));
    } else if (scriptSucceeded) {
        std::fputs("kelmo-offline: the script did not call _uninit()\n", stderr);
    }
}
