#include "text/translation_notes.h"

#include <fmt/format.h>

#include <algorithm>

#include "text/json_text.h"

namespace {

bool isNull(const rapidjson::Value& event, const char* name) {
    const auto member = event.FindMember(name);
    return member == event.MemberEnd() || member->value.IsNull();
}

std::string unitNote(const rapidjson::Value& event) {
    const std::string why = " (" + memberText(event, "why") + ")";
    return isNull(event, "metres") ? "the unit is not known" + why
                                   : "a unit is " + compact(event["metres"]) + " m" + why;
}

std::string axisNote(const rapidjson::Value& event) {
    const std::string why = " (" + memberText(event, "why") + ")";
    return isNull(event, "axis") ? "which axis is up is not known" + why : memberText(event, "axis") + " is up" + why;
}

// The line for an event, or nothing for one that is as expected.
std::string note(const rapidjson::Value& event) {
    const std::string kind = memberText(event, "event");
    if (kind == "unit") return unitNote(event);
    if (kind == "up") return axisNote(event);
    if (kind == "renamed") {
        return fmt::format("{} {} is called {}", memberText(event, "kind"), quoted(memberText(event, "from")),
                           quoted(memberText(event, "to")));
    }
    if (kind == "derived") return memberText(event, "what") + ": " + memberText(event, "how");
    if (kind == "left-out") return "left out: " + memberText(event, "what") + ": " + memberText(event, "why");
    if (kind == "missing") return "there is no file " + quoted(memberText(event, "file"));
    if (kind == "texture") {
        const std::string state = memberText(event, "state");
        const std::string file = quoted(memberText(event, "file"));
        if (state == "missing") return "the texture file " + file + " is missing";
        if (state == "outside the scene's folder") return "the texture file " + file + " lies " + state;
    }
    return {};
}

}  // namespace

std::string translationNotes(const std::string& scene, const std::string& report) {
    std::string text;
    for (size_t begin = 0; begin < report.size();) {
        const size_t end = std::min(report.find('\n', begin), report.size());
        const std::string line = note(parseJson(report.substr(begin, end - begin)));
        if (!line.empty()) text += scene + ": " + line + "\n";
        begin = end + 1;
    }
    return text;
}
