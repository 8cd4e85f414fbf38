// What the translation of an export has to tell, one line each on standard error: units and axis, and whatever was
// renamed, derived, left out or not found.
#pragma once

#include <string>

// The lines, from the translation's report (JSON Lines). Names that the translation took over unchanged are
// not told.
std::string translationNotes(const std::string& scene, const std::string& report);
