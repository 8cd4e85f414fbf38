#include "json_text.h"

#include <cmath>

#include "core/scene_file/numbers.h"
#include "core/scene_file/utf8.h"

namespace Translation {
namespace {

constexpr char HEX[] = "0123456789abcdef";

void appendControl(std::string& out, unsigned char byte) {
    switch (byte) {
        case '\b':
            out += "\\b";
            return;
        case '\f':
            out += "\\f";
            return;
        case '\n':
            out += "\\n";
            return;
        case '\r':
            out += "\\r";
            return;
        case '\t':
            out += "\\t";
            return;
        default:
            out += "\\u00";
            out += HEX[byte >> 4];
            out += HEX[byte & 15];
    }
}

template <class Float>
void appendFinite(std::string& out, Float number, std::size_t (*write)(char*, Float)) {
    if (std::isnan(number)) {
        out += "\"nan\"";
    } else if (std::isinf(number)) {
        out += number > 0 ? "\"inf\"" : "\"-inf\"";
    } else {
        char text[Offline::NUMBER_TEXT_BYTES];
        out.append(text, write(text, number));
    }
}

}  // namespace

void appendText(std::string& out, std::string_view text) {
    out += '"';
    while (!text.empty()) {
        const std::size_t length = Offline::utf8Length(text.data(), text.data() + text.size());
        const unsigned char byte = static_cast<unsigned char>(text[0]);
        if (length == 0) {
            out += "\\udc";
            out += HEX[byte >> 4];
            out += HEX[byte & 15];
        } else if (byte < 0x20) {
            appendControl(out, byte);
        } else {
            if (byte == '"' || byte == '\\') out += '\\';
            out.append(text.substr(0, length));
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    out += '"';
}

void appendInteger(std::string& out, std::int64_t number) { out += std::to_string(number); }

void appendNumber(std::string& out, float number) { appendFinite(out, number, Offline::writeFloat); }

void appendNumber(std::string& out, double number) { appendFinite(out, number, Offline::writeDouble); }

void appendNumbers(std::string& out, const float* numbers, std::size_t count) {
    char before = '[';
    for (std::size_t i = 0; i < count; ++i) {
        out += before;
        appendNumber(out, numbers[i]);
        before = ',';
    }
    out += ']';
}

}  // namespace Translation
