#include "params/shared_text.h"

#include <cstring>

namespace KUtils {

SharedText* makeSharedText(const char* characters) {
    if (characters == nullptr) return nullptr;
    auto* text = static_cast<SharedText*>(kelmo_malloc(sizeof(SharedText)));
    if (text == nullptr) return nullptr;
    const std::size_t size = std::strlen(characters) + 1;
    *text = SharedText{kelmo_realloc, kelmo_free, static_cast<char*>(kelmo_realloc(nullptr, size)), 1};
    if (text->characters == nullptr) {
        kelmo_free(text, sizeof(SharedText));
        return nullptr;
    }
    std::memcpy(text->characters, characters, size);
    return text;
}

void releaseText(SharedText* text) {
    if (text == nullptr || --text->references != 0) return;
    const FreeFunction free = text->free;
    free(text->characters, 0);
    free(text, sizeof(SharedText));
}

}  // namespace KUtils
