// How a value clones itself.
#pragma once

namespace KUtils {

// A new copy of `source`, owned by the caller; null when memory is too short for any part of it. Value
// gives isWholeCopyOf(source).
template <class Value>
Value* wholeCopy(const Value& source) {
    auto* copy = new Value(source);
    if (copy == nullptr || copy->isWholeCopyOf(source)) return copy;
    delete copy;
    return nullptr;
}

}  // namespace KUtils
