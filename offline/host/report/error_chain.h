// Error chains of the core as texts.
#pragma once

#include <string>

#include "kelmo/core/error_record.h"

namespace Offline {

// The chain as one line, "[location] message | [location] message"; gives the reference back.
std::string takeErrorText(KUtils::ErrorRecord* error);

}  // namespace Offline
