// The end of a run.
#pragma once

#include "session/host.h"

// Ends the host; what is left alive is told on standard error, and nothing is when nothing is left. A script that
// ended early cannot be blamed for a missing _uninit().
void endHost(Host& host, bool scriptSucceeded);
