// Marks the records that may wait until an export request asks for them.
#pragma once

#include <vector>

#include "convert/output/record.h"

namespace Translation {

// Records of the kinds (a set of DeferKind) that nothing visible refers to, directly or through others, become
// deferred. A record that stays never refers to one that waits. Returns how many wait.
std::size_t markDeferred(std::vector<Record>& records, unsigned kinds);

}  // namespace Translation
