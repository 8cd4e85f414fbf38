#include "host_end.h"

#include <fmt/format.h>

#include <cstdio>

void endHost(Host& host) {
    std::string report;
    if (host.end(report)) return;
    fmt::print(stderr, "kelmo-offline: something was left alive at the end: {}\n", report);
}
