#include "host/report/warnings.h"

#include <cstdio>

namespace Offline {

void Warnings::add(const char* text) {
    ++added;
    if (kept.size() < KEPT) kept.emplace_back(text);
    if (echo) std::fprintf(stderr, "kelmo: warning: %s\n", text);
}

void Warnings::clear() {
    kept.clear();
    added = 0;
}

}  // namespace Offline
