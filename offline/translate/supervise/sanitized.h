// Whether this is a build with AddressSanitizer, whose shadow memory no limit on the address space can bear.
#pragma once

namespace Translation {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool SANITIZED = true;
#else
constexpr bool SANITIZED = false;
#endif

}  // namespace Translation
