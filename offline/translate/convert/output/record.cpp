#include "convert/output/record.h"

#include "json_text.h"

namespace Translation {

void Record::begin(const char* param) {
    if (!params_.empty()) params_ += ',';
    appendText(params_, param);
    params_ += ':';
}

void Record::flag(const char* param, bool value) { json(param, value ? "true" : "false"); }

void Record::integer(const char* param, int value) {
    begin(param);
    appendNumber(params_, value);
}

void Record::real(const char* param, float value) {
    begin(param);
    appendNumber(params_, value);
}

void Record::precise(const char* param, double value) {
    begin(param);
    appendNumber(params_, value);
}

void Record::text(const char* param, const std::string& value) {
    begin(param);
    appendText(params_, value);
}

void Record::numbers(const char* param, const float* values, std::size_t count) {
    begin(param);
    appendNumbers(params_, values, count);
}

void Record::json(const char* param, const std::string& text) {
    begin(param);
    params_ += text;
}

void Record::refer(const char* param, const Reference& to) {
    begin(param);
    if (to.output.empty()) {
        appendText(params_, to.plugin);
    } else {
        params_ += '[';
        appendText(params_, to.plugin);
        params_ += ',';
        appendText(params_, to.output);
        params_ += ']';
    }
    references_.push_back(to.plugin);
}

void Record::write(SceneOutput& out) const {
    std::string& line = out.text();
    line += "{\"type\":";
    appendText(line, type_);
    line += ",\"name\":";
    appendText(line, name_);
    if (!dccName_.empty() && dccName_ != name_) {
        line += ",\"node\":";
        appendText(line, dccName_);
    }
    if (deferred_) line += ",\"deferred\":true";
    if (!params_.empty() || later_) {
        line += ",\"params\":{";
        line += params_;
        out.beginParams(!params_.empty());
        if (later_) later_(out);
        out.text() += '}';
    }
    out.text() += "}\n";
    out.drain();
}

}  // namespace Translation
