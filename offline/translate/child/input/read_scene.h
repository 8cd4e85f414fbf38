// Reads a scene with the scene reader and writes it as an offline scene.
#pragma once

#include "child/options.h"
#include "child/report.h"

namespace Translation {

// Throws Failure, or std::bad_alloc at the limit of memory.
void translateScene(const Options& options, Report& report);

}  // namespace Translation
