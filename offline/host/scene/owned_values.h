// The host's end of the owned-value set: it makes the empty set and, at its end, frees what the module
// put into it. The algorithm (hashing, placing, removing) is the module's; here entries are only walked.
//
// Ownership: set and entries live in the core's heap and belong to whoever called makeOwnedValues.
#pragma once

#include <cstdint>

#include "kelmo/scene/pointer_set.h"

namespace Offline {

// An empty set, or null when it cannot be allocated.
KUtils::PointerSet* makeOwnedValues();

// How many entries are in use, counted by walking them.
std::uint32_t countOwnedValues(const KUtils::PointerSet& set);

// Destroys every value of the set through its deleting destructor, frees the set, and returns how many
// values were freed. Null: nothing.
std::uint32_t freeOwnedValues(KUtils::PointerSet* set);

}  // namespace Offline
