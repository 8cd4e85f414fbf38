// The host's owned-value set as the module uses it: values that scripts made and the host frees.
//
// Ownership: a registered value belongs to the host until it is destroyed here. A null set is allowed and
// holds nothing. Nothing throws.
#pragma once

#include "kelmo/param/plugin_parameter.h"
#include "kelmo/scene/pointer_set.h"

namespace KUtils {

// Hands `value` over to the host, once.
void registerOwnedValue(PointerSet* set, KelmoPluginParameter* value);

// Destroys `value` and takes it out of the set, if it is there; true when it was.
bool destroyOwnedValue(PointerSet* set, KelmoPluginParameter* value);

}  // namespace KUtils
