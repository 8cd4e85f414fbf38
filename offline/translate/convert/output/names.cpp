#include "convert/output/names.h"

namespace Translation {

std::string Names::take(const std::string& wanted, const char* kind) {
    if (taken_.insert(wanted).second) return wanted;
    int& number = next_.try_emplace(wanted, 2).first->second;
    for (;; ++number) {
        std::string name = wanted + "_" + std::to_string(number);
        if (wanted_.count(name) != 0 || !taken_.insert(name).second) continue;
        ++number;
        Report::Line(report_, "renamed").text("kind", kind).text("from", wanted).text("to", name);
        return name;
    }
}

}  // namespace Translation
