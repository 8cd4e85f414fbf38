// Tells the watcher (core_api.h) of a call from outside; costs nothing but the question when there is none.
#pragma once

namespace Offline {

void noteCall(const char* functionName);

}  // namespace Offline
