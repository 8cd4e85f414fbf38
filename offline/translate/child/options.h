// The command line of the translating program.
#pragma once

#include <cstdint>
#include <string>

namespace Translation {

struct Options {
    std::string scene;
    int output = -1;          // descriptor of the translated scene
    int report = -1;          // descriptor of the report; -1: none
    unsigned deferKinds = 0;  // a set of DeferKind
    std::uint64_t maxInputBytes = std::uint64_t{1} << 30;
    bool help = false;
};

extern const char* const USAGE;

// False when the command line is wrong; `problem` is then one sentence.
bool parseOptions(int count, const char* const* arguments, Options& options, std::string& problem);

}  // namespace Translation
