#include "json_text.h"

namespace Translation {

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
