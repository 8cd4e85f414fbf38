#include "host/report/json_object.h"

#include <cstdio>
#include <cstring>

#include "core/scene_file/json/utf8.h"

namespace Offline {

namespace {

const char* shortEscape(unsigned char c) {
    switch (c) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\b':
            return "\\b";
        case '\f':
            return "\\f";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            return nullptr;
    }
}

}  // namespace

void appendJsonText(std::string& out, const char* text, std::size_t length) {
    const char* end = text + length;
    out += '"';
    while (text != end) {
        const auto c = static_cast<unsigned char>(*text);
        const std::size_t sequence = utf8Length(text, end);
        if (shortEscape(c) != nullptr) {
            out += shortEscape(c);
        } else if (sequence == 0 || c < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, sequence == 0 ? "\\udc%02x" : "\\u00%02x", c);
            out += escape;
        } else {
            out.append(text, sequence);
        }
        text += sequence == 0 ? 1 : sequence;
    }
    out += '"';
}

void JsonObject::key(const char* name) {
    if (body.size() > 1) body += ',';
    appendJsonText(body, name, std::strlen(name));
    body += ':';
}

JsonObject& JsonObject::text(const char* name, const char* value) {
    key(name);
    if (value == nullptr) {
        body += "null";
    } else {
        appendJsonText(body, value, std::strlen(value));
    }
    return *this;
}

JsonObject& JsonObject::text(const char* name, const std::string& value) {
    key(name);
    appendJsonText(body, value.data(), value.size());
    return *this;
}

JsonObject& JsonObject::number(const char* name, std::uint64_t value) {
    key(name);
    body += std::to_string(value);
    return *this;
}

}  // namespace Offline
