#include "output/standard_output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "failure.h"

namespace {

[[noreturn]] void fail() {
    throw Failure(exitOutput, std::string("cannot write to standard output: ") + std::strerror(errno));
}

}  // namespace

void writeOutput(const std::string& text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) fail();
}

void flushOutput() {
    if (std::fflush(stdout) != 0) fail();
}

void writeError(const std::string& text) { std::fwrite(text.data(), 1, text.size(), stderr); }
