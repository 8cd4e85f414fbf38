// Small helpers for reading the host's JSON lines.
#pragma once

#include <rapidjson/document.h>

#include <string>

// Parses a line of the host's; throws Failure with exitInstallation when it is not JSON.
rapidjson::Document parseJson(const std::string& line);

// A text member, or an empty text.
std::string memberText(const rapidjson::Value& object, const char* name);

// A text in JSON's quotes: names are shown in this form, since they may hold quotes, line ends and bytes that
// are no UTF-8.
std::string quoted(const std::string& text);

// A value as JSON on one line.
std::string compact(const rapidjson::Value& value);
