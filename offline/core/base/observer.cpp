#include "core/base/call_watch.h"
#include "core/core_api.h"

namespace Offline {
namespace {

TextSink observer = nullptr;
void* observerUser = nullptr;
CallWatcher callWatcher = nullptr;

}  // namespace

void setObserver(TextSink sink, void* user) {
    observer = sink;
    observerUser = user;
}

bool isObserved() { return observer != nullptr; }

void reportCall(const char* text, std::size_t length) {
    if (observer != nullptr) observer(observerUser, text, length);
}

void setCallWatcher(CallWatcher watcher) { callWatcher = watcher; }

void noteCall(const char* functionName) {
    if (callWatcher != nullptr) callWatcher(functionName);
}

}  // namespace Offline
