// Runs a fuzzer that is written in Python: the module NAME of this folder, whose run(bytes) raises what it found. The
// module and the offline host are the staged ones of this build, with coverage in them.
//
// Leaks are not looked for by the sanitizer, to which the interpreter's own heap is closed; the host counts what is
// left of values, plugins and blocks at the end of each run.
#pragma once

#include <cstddef>
#include <cstdint>

namespace fuzz {

// Starts the interpreter and imports the module; ends the process when it cannot.
void startPython(const char* name);

// Ends the process with a traceback when run() raises.
void runPython(const std::uint8_t* data, std::size_t size);

}  // namespace fuzz
