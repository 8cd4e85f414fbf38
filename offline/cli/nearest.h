// Suggestions for misspelt names.
#pragma once

#include <string>
#include <vector>

// The candidate that is most like `name` (few letters differ, case counts little), or an empty text when none is.
std::string nearestName(const std::string& name, const std::vector<std::string>& candidates);

// `; did you mean "X"?`, or nothing when no candidate is near.
std::string suggestion(const std::string& name, const std::vector<std::string>& candidates);
