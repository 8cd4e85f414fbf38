// The end of a run.
#pragma once

#include "host.h"

// Ends the host; what is left alive is told on standard error, and nothing is when nothing is left.
void endHost(Host& host);
