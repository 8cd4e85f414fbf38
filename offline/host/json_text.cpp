#include "host/json_text.h"

#include <cstdio>
#include <cstring>

namespace Offline {

namespace {

// The length of the valid UTF-8 sequence at `text`; 0: none stands there.
std::size_t sequenceLength(const unsigned char* text, std::size_t available) {
    struct Form {
        unsigned char firstLow, firstHigh, secondLow, secondHigh;
        std::size_t length;
    };
    // The table of well-formed sequences: no overlong form, no surrogate, nothing above 0x10ffff.
    static constexpr Form FORMS[] = {
        {0x00, 0x7f, 0, 0, 1},       {0xc2, 0xdf, 0x80, 0xbf, 2}, {0xe0, 0xe0, 0xa0, 0xbf, 3},
        {0xe1, 0xec, 0x80, 0xbf, 3}, {0xed, 0xed, 0x80, 0x9f, 3}, {0xee, 0xef, 0x80, 0xbf, 3},
        {0xf0, 0xf0, 0x90, 0xbf, 4}, {0xf1, 0xf3, 0x80, 0xbf, 4}, {0xf4, 0xf4, 0x80, 0x8f, 4},
    };
    for (const Form& form : FORMS) {
        if (text[0] < form.firstLow || text[0] > form.firstHigh) continue;
        if (form.length > available) return 0;
        if (form.length > 1 && (text[1] < form.secondLow || text[1] > form.secondHigh)) return 0;
        for (std::size_t i = 2; i < form.length; ++i)
            if ((text[i] & 0xc0) != 0x80) return 0;
        return form.length;
    }
    return 0;
}

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
    const auto* bytes = reinterpret_cast<const unsigned char*>(text);
    out += '"';
    for (std::size_t at = 0; at < length;) {
        const unsigned char c = bytes[at];
        const std::size_t sequence = sequenceLength(bytes + at, length - at);
        if (shortEscape(c) != nullptr) {
            out += shortEscape(c);
        } else if (sequence == 0 || c < 0x20) {
            char escape[8];
            std::snprintf(escape, sizeof escape, sequence == 0 ? "\\udc%02x" : "\\u00%02x", c);
            out += escape;
        } else {
            out.append(text + at, sequence);
        }
        at += sequence == 0 ? 1 : sequence;
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
