#include "text/change_text.h"

#include <fmt/format.h>

#include "text/json_text.h"

namespace {

constexpr const char* notSet = "(not set)";

std::string valueText(const rapidjson::Value& change, const char* name) {
    const auto member = change.FindMember(name);
    return member == change.MemberEnd() || !member->value.IsString() ? notSet : memberText(change, name);
}

std::string pluginLine(const char* what, const rapidjson::Value& change) {
    return fmt::format("{:<8} {} {}\n", what, memberText(change, "type"), quoted(memberText(change, "plugin")));
}

}  // namespace

std::string ChangeText::add(const std::string& line) {
    const rapidjson::Document change = parseJson(line);
    const std::string kind = memberText(change, "change");
    if (kind == "scene_added") {
        ++scenes_;
        const std::string plugins = compact(change["plugins"]);
        return fmt::format("loaded   an extra scene of {} plugin{}\n", plugins, plugins == "1" ? "" : "s");
    }
    const std::string plugin = memberText(change, "plugin");
    if (kind == "created" || kind == "deleted") {
        ++(kind == "created" ? created_ : deleted_);
        current_ = plugin;
        currentIsNew_ = kind == "created";
        return pluginLine(kind.c_str(), change);
    }
    std::string text;
    if (plugin != current_) {
        ++changed_;
        current_ = plugin;
        currentIsNew_ = false;
        text = pluginLine("changed", change);
    }
    text += fmt::format("           {}: ", memberText(change, "param"));
    if (!currentIsNew_) text += valueText(change, "old") + " -> ";
    return text + valueText(change, "new") + "\n";
}

std::string ChangeText::summary() const {
    std::string text;
    const auto count = [&text](int number, const char* what) {
        if (number) text += fmt::format("{}{} {}", text.empty() ? "" : ", ", number, what);
    };
    count(created_, "created");
    count(deleted_, "deleted");
    count(changed_, "changed");
    count(scenes_, scenes_ == 1 ? "scene loaded" : "scenes loaded");
    return text.empty() ? "nothing changed" : text;
}
