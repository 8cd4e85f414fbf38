// While one of these lives, SIGINT, SIGTERM and SIGHUP wait: what is being written is finished first. The
// destructor puts the former handling back and then lets the first signal that came do its work.
#pragma once

#include <csignal>

class DeferredSignals {
  public:
    DeferredSignals();
    ~DeferredSignals();
    DeferredSignals(const DeferredSignals&) = delete;
    DeferredSignals& operator=(const DeferredSignals&) = delete;

  private:
    static constexpr int count = 3;
    struct sigaction former_[count];
};
