#include "core/values/value.h"

#include "core/base/counters.h"

namespace Offline {

Value::Value(ValueName valueName, KUtils::ParamType code)
    : name(valueName.copied ? copyText(valueName.text) : valueName.text),
      ownsName(valueName.copied ? 1u : 0u),
      code(code) {
    ++counters.valuesMade;
}

Value::~Value() {
    if (ownsName != 0) freeText(name);
    ++counters.valuesFreed;
}

}  // namespace Offline
