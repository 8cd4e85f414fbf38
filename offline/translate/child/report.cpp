#include "child/report.h"

#include "child/write_all.h"
#include "json_text.h"

namespace Translation {

Report::Line::Line(Report& report, const char* event) : report_(report), line_("{") { text("event", event); }

Report::Line::~Line() {
    line_ += "}\n";
    report_.write(line_);
}

void Report::Line::key(const char* name) {
    if (line_.size() > 1) line_ += ',';
    line_ += '"';
    line_ += name;
    line_ += "\":";
}

Report::Line& Report::Line::text(const char* name, const std::string& value) {
    key(name);
    appendText(line_, value);
    return *this;
}

Report::Line& Report::Line::integer(const char* name, long long value) {
    key(name);
    line_ += std::to_string(value);
    return *this;
}

Report::Line& Report::Line::number(const char* name, double value) {
    key(name);
    appendNumber(line_, value);
    return *this;
}

Report::Line& Report::Line::nothing(const char* name) {
    key(name);
    line_ += "null";
    return *this;
}

void Report::write(std::string_view line) {
    // A report that nobody takes any more must not end the translation.
    if (descriptor_ >= 0 && !writeAll(descriptor_, line)) descriptor_ = -1;
}

}  // namespace Translation
