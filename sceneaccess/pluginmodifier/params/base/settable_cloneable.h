// The two interfaces that almost every value of the module answers.
#pragma once

#include <cstdint>

#include "kelmo/param/settable.h"

namespace KUtils {

// The part of `value` that `id` names, or null for any other interface.
template <class Value>
PluginInterface* settableOrCloneable(Value& value, InterfaceID id) {
    switch (static_cast<std::uint32_t>(id)) {
        case EXT_SETTABLE_PARAM:
            return static_cast<KelmoSettableParamInterface*>(&value);
        case EXT_CLONEABLE_PARAM:
            return static_cast<KelmoCloneableParamInterface*>(&value);
        default:
            return nullptr;
    }
}

}  // namespace KUtils
