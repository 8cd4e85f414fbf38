#include "text/catalogue_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "text/json_text.h"

namespace {

constexpr size_t longestColumn = 40;

bool flag(const rapidjson::Value& object, const char* name, bool otherwise) {
    const auto member = object.FindMember(name);
    return member != object.MemberEnd() && member->value.IsBool() ? member->value.GetBool() : otherwise;
}

// "texture list", "list of map_channels"
std::string paramType(const rapidjson::Value& param) {
    const std::string type = memberText(param, "type"), shape = memberText(param, "shape");
    if (type == "list") return shape.empty() || shape == "any" ? "list" : "list of " + shape;
    return flag(param, "list", false) ? type + " list" : type;
}

std::string paramDefault(const rapidjson::Value& param) {
    const auto member = param.FindMember("default");
    return member == param.MemberEnd() ? "-" : compact(member->value);
}

// "A material; only one may exist; offers texture."
std::string traits(const rapidjson::Value& type) {
    std::string text = "kind: " + memberText(type, "kind");
    if (flag(type, "unique", false)) text += "; only one plugin of the type may exist";
    const auto interfaces = type.FindMember("interfaces");
    if (interfaces != type.MemberEnd() && interfaces->value.IsArray() && !interfaces->value.Empty()) {
        text += "; usable as";
        const char* before = " ";
        for (const rapidjson::Value& name : interfaces->value.GetArray()) {
            text += before + std::string(name.GetString());
            before = ", ";
        }
    }
    return text;
}

}  // namespace

std::string describeTypes(const std::vector<std::string>& lines) {
    struct Row {
        std::string kind, name, doc;
    };
    std::vector<Row> rows;
    std::vector<std::string> kinds;
    size_t width = 0;
    for (const std::string& line : lines) {
        const rapidjson::Document type = parseJson(line);
        rows.push_back({memberText(type, "kind"), memberText(type, "name"), memberText(type, "doc")});
        width = std::max(width, rows.back().name.size());
        if (std::find(kinds.begin(), kinds.end(), rows.back().kind) == kinds.end()) kinds.push_back(rows.back().kind);
    }
    std::string text;
    for (const std::string& kind : kinds) {
        text += (text.empty() ? "" : "\n") + kind + "\n";
        for (const Row& row : rows) {
            if (row.kind == kind) text += fmt::format("  {:<{}}  {}\n", row.name, width, row.doc);
        }
    }
    return text;
}

std::string describeType(const std::string& line) {
    const rapidjson::Document type = parseJson(line);
    std::string text = fmt::format("{}: {}\n{}\n", memberText(type, "name"), memberText(type, "doc"), traits(type));

    const auto params = type.FindMember("params");
    if (params == type.MemberEnd() || params->value.Empty()) return text + "\nno parameters\n";
    std::vector<std::array<std::string, 4>> rows{{"parameter", "type", "default", ""}};
    for (const rapidjson::Value& param : params->value.GetArray()) {
        rows.push_back({memberText(param, "name"), paramType(param), paramDefault(param), memberText(param, "doc")});
    }
    std::array<size_t, 3> widths{};
    for (const auto& row : rows) {
        for (size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], std::min(row[i].size(), longestColumn));
    }
    text += "\n";
    for (const auto& row : rows) {
        std::string shown = fmt::format("  {:<{}}  {:<{}}  {:<{}}  {}", row[0], widths[0], row[1], widths[1], row[2],
                                        widths[2], row[3]);
        text += shown.erase(shown.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
}

std::vector<std::string> typeNames(const std::vector<std::string>& lines) {
    std::vector<std::string> names;
    names.reserve(lines.size());
    for (const std::string& line : lines) names.push_back(memberText(parseJson(line), "name"));
    return names;
}
