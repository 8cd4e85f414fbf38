// The translated scene on its way to an open descriptor, in pieces, so that a large mesh never stands in
// memory as text. Throws Failure when it cannot be written.
#pragma once

#include <string>

namespace Translation {

class SceneOutput {
  public:
    explicit SceneOutput(int descriptor) : descriptor_(descriptor) {}

    // Append to this; call `drain` now and then.
    std::string& text() { return text_; }
    void drain();
    void finish();

    // Starts a parameter: its name and, when it is not the first, the comma before it.
    void beginParams(bool someWritten) { needsComma_ = someWritten; }
    void param(const char* name);

  private:
    void flush();

    int descriptor_;
    std::string text_;
    bool needsComma_ = false;
};

}  // namespace Translation
