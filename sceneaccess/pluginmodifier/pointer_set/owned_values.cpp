#include "pointer_set/owned_values.h"

#include "pointer_set/pointer_hash.h"
#include "pointer_set/pointer_set_algorithm.h"

namespace KUtils {

namespace {

using OwnedSet = PointerSetAlgorithm<PointerHash>;

OwnedSet::Key keyOf(const KelmoPluginParameter* value) { return reinterpret_cast<std::uintptr_t>(value); }

}  // namespace

void registerOwnedValue(PointerSet* set, KelmoPluginParameter* value) {
    if (set != nullptr) OwnedSet::insert(*set, keyOf(value), true);
}

bool destroyOwnedValue(PointerSet* set, KelmoPluginParameter* value) {
    return set != nullptr && OwnedSet::remove(*set, keyOf(value), [value] { delete value; });
}

}  // namespace KUtils
