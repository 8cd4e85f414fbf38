#include "core/core_api.h"

namespace Offline {
namespace {

TextSink observer = nullptr;
void* observerUser = nullptr;

}  // namespace

void setObserver(TextSink sink, void* user) {
    observer = sink;
    observerUser = user;
}

bool isObserved() { return observer != nullptr; }

void reportCall(const char* text, std::size_t length) {
    if (observer != nullptr) observer(observerUser, text, length);
}

}  // namespace Offline
