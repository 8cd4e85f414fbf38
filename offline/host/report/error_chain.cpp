#include "host/report/error_chain.h"

namespace Offline {

std::string takeErrorText(KUtils::ErrorRecord* error) {
    std::string text;
    for (const KUtils::ErrorRecord* record = error; record != nullptr; record = record->cause) {
        if (!text.empty()) text += " | ";
        if (record->location != nullptr) text.append("[").append(record->location).append("] ");
        text += record->message;
    }
    KUtils::releaseError(error);
    return text;
}

}  // namespace Offline
