#include "text/json_text.h"

#include <fmt/format.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cmath>
#include <utility>

#include "failure.h"

namespace {

// Keeps the sign of "-0", which comes as the int 0; a zero without a sign comes unsigned.
struct SignedZeros : rapidjson::Document {
    bool Int(int number) { return number == 0 ? Double(-0.0) : GenericDocument::Int(number); }
};

// Writes it as the host does.
struct NumberWriter : rapidjson::Writer<rapidjson::StringBuffer> {
    using rapidjson::Writer<rapidjson::StringBuffer>::Writer;
    bool Double(double number) {
        if (number == 0 && std::signbit(number)) return RawValue("-0", 2, rapidjson::kNumberType);
        return Writer::Double(number);
    }
};

}  // namespace

rapidjson::Document parseJson(const std::string& line) {
    SignedZeros document;
    bool read = false;
    auto events = [&](rapidjson::Document&) {
        rapidjson::StringStream text(line.c_str());
        rapidjson::Reader reader;
        return read = !reader.Parse<rapidjson::kParseFullPrecisionFlag>(text, document).IsError();
    };
    document.Populate(events);
    if (!read) throw Failure(exitInstallation, "the host library gave a damaged line: " + line);
    return std::move(document);
}

std::string memberText(const rapidjson::Value& object, const char* name) {
    const auto member = object.FindMember(name);
    if (member == object.MemberEnd() || !member->value.IsString()) return {};
    return std::string(member->value.GetString(), member->value.GetStringLength());
}

namespace {

// RapidJSON reads the escape of a lone low surrogate, which stands for a byte that is no UTF-8, as three bytes
// ED B2..B3 xx. Here such a triple becomes the escape again.
bool isEscapedByte(const std::string& text, size_t at) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(text[i]); };
    return at + 2 < text.size() && byte(at) == 0xED && (byte(at + 1) == 0xB2 || byte(at + 1) == 0xB3) &&
           (byte(at + 2) & 0xC0) == 0x80;
}

}  // namespace

std::string quoted(const std::string& text) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
    const std::string written(buffer.GetString(), buffer.GetSize());
    std::string result;
    for (size_t i = 0; i < written.size(); ++i) {
        if (!isEscapedByte(written, i)) {
            result += written[i];
            continue;
        }
        const unsigned code = 0xD000u | (static_cast<unsigned char>(written[i + 1]) & 0x3Fu) << 6 |
                              (static_cast<unsigned char>(written[i + 2]) & 0x3Fu);
        result += fmt::format("\\u{:04x}", code);
        i += 2;
    }
    return result;
}

std::string compact(const rapidjson::Value& value) {
    rapidjson::StringBuffer buffer;
    NumberWriter writer(buffer);
    value.Accept(writer);
    return std::string(buffer.GetString(), buffer.GetSize());
}
