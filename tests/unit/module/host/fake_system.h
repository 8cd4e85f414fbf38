// A system of the test's own under the host bridge: an environment, one library and a log of what was asked.
#pragma once

#include <map>
#include <string>

#include "kelmo/scene/host_exports.h"

struct FakeSystem {
    std::map<std::string, std::string> environment;
    std::map<std::string, void*> symbols;
    bool loads = true;              // false: the library cannot be loaded
    bool errorRecord = true;        // false: and no record says why
    void (*atLoading)() = nullptr;  // what else happens then
    std::string log;                // one word a call: load, symbol names, begin, end, free
};

extern FakeSystem fakeSystem;

// A system whose library is complete and whose manager and scene list stand.
void resetFakeSystem();
