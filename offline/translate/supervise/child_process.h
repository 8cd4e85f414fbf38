// Runs the translating program under limits and waits for it.
#pragma once

#include <string>
#include <vector>

#include "supervise.h"

namespace Translation {

enum class ProcessEnd { exited, signalled, timeOut, notStarted };

struct ProcessResult {
    ProcessEnd end = ProcessEnd::notStarted;
    int number = 0;      // exit code, signal, or errno
    std::string report;  // what the process wrote to its report descriptor
};

// The descriptors that the process has beside its standard ones.
constexpr int OUTPUT_DESCRIPTOR = 3;
constexpr int REPORT_DESCRIPTOR = 4;

// `arguments[0]` is the program. `output` becomes OUTPUT_DESCRIPTOR of the process.
ProcessResult runLimited(const std::vector<std::string>& arguments, int output, const Limits& limits);

}  // namespace Translation
