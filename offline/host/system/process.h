// What the host asks of the process that it was loaded into. One source per system.
#pragma once

#include <cstdint>
#include <string>

namespace Offline {

// The folder that this library's file stands in: UTF-8, forward slashes, none at the end. Empty when
// the system does not say.
std::string ownFolder();

// Keeps this library in memory until the process ends, however often it is freed.
void keepLoaded();

// A number that tells the calling thread from every other living one.
std::uint64_t currentThread();

}  // namespace Offline
