#include "params/list/string_list_param.h"

namespace KUtils {

void ElementLife<SharedText*>::initialise(SharedText** first, std::size_t count) {
    std::memset(first, 0, count * sizeof *first);
}

void ElementLife<SharedText*>::dispose(SharedText** first, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) releaseText(first[i]);
}

void ElementLife<SharedText*>::copy(SharedText** to, SharedText* const* from, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) to[i] = retainText(from[i]);
}

const char* DefStringListParam::getString(int index, double) {
    SharedText* const* element = elementAt(index);
    return element != nullptr ? charactersOf(*element) : nullptr;
}

void DefStringListParam::setString(const char* value, int index, double) {
    // The new record comes first: the value may be a text of this list.
    SharedText* text = makeSharedText(value);
    SharedText** slot = slotFor(index);
    if (slot == nullptr) {
        releaseText(text);
        return;
    }
    // An appended slot too may hold a record, of an earlier, larger count.
    releaseText(*slot);
    *slot = text;
}

KelmoPluginParameter* DefStringListParam::clone() { return wholeCopy(*this); }

}  // namespace KUtils
