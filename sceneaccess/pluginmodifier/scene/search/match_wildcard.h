// Wildcard matching on bytes, case-sensitive and anchored at both ends: `*` is any run of bytes, `?` any one byte.
// There is no escape.
#pragma once

namespace KUtils::Python {

// Remembers only the latest star and allocates nothing.
bool matchWildcard(const char* pattern, const char* subject);

}  // namespace KUtils::Python
