#include "convert/output/scene_output.h"

#include <cerrno>
#include <cstring>

#include "child/write_all.h"
#include "json_text.h"
#include "problem.h"

namespace Translation {
namespace {

constexpr std::size_t PIECE_BYTES = std::size_t{1} << 20;

}  // namespace

void SceneOutput::drain() {
    if (text_.size() >= PIECE_BYTES) flush();
}

void SceneOutput::finish() { flush(); }

void SceneOutput::flush() {
    if (!writeAll(descriptor_, text_)) {
        throw Failure{Problem::limit, std::string("The translated scene cannot be written: ") + strerror(errno) + "."};
    }
    text_.clear();
}

void SceneOutput::param(const char* name) {
    if (needsComma_) text_ += ',';
    needsComma_ = true;
    appendText(text_, name);
    text_ += ':';
}

}  // namespace Translation
