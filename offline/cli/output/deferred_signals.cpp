#include "output/deferred_signals.h"

namespace {

constexpr int deferred[] = {SIGINT, SIGTERM, SIGHUP};
volatile std::sig_atomic_t arrived = 0;

void remember(int number) {
    if (!arrived) arrived = number;
}

}  // namespace

DeferredSignals::DeferredSignals() {
    arrived = 0;
    struct sigaction waiting {};
    waiting.sa_handler = remember;
    waiting.sa_flags = SA_RESTART;
    sigemptyset(&waiting.sa_mask);
    for (int i = 0; i < count; ++i) {
        sigaction(deferred[i], nullptr, &former_[i]);
        // A signal that the caller had ignored stays ignored (nohup).
        if (former_[i].sa_handler != SIG_IGN) sigaction(deferred[i], &waiting, nullptr);
    }
}

DeferredSignals::~DeferredSignals() {
    for (int i = 0; i < count; ++i) sigaction(deferred[i], &former_[i], nullptr);
    if (arrived) raise(arrived);
}
