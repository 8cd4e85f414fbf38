#include <windows.h>

#include <cstdlib>

#include "host/error_text.h"
#include "host/system/system.h"
#include "host/text_conversion.h"

namespace KUtils::Python {

namespace {

// A zero-terminated array of units or bytes in the core's heap, for the length of a conversion.
template <class Unit>
class Buffer {
  public:
    explicit Buffer(std::size_t length)
        : bytes((length + 1) * sizeof(Unit)), units(static_cast<Unit*>(kelmo_malloc(bytes))) {}
    ~Buffer() { kelmo_free(units, bytes); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    Unit* get() const { return units; }

  private:
    std::size_t bytes;
    Unit* units;
};

static_assert(sizeof(wchar_t) == sizeof(char16_t), "wide characters are UTF-16 here");

char16_t* asUtf16(wchar_t* text) { return reinterpret_cast<char16_t*>(text); }
const char16_t* asUtf16(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

}  // namespace

SharedText* readEnvironment(const char* name) {
    const std::size_t nameLength = utf8ToUtf16(name, nullptr, 0);
    const Buffer<wchar_t> wideName(nameLength);
    if (wideName.get() == nullptr) return nullptr;
    utf8ToUtf16(name, asUtf16(wideName.get()), nameLength + 1);

    const wchar_t* wideValue = _wgetenv(wideName.get());
    if (wideValue == nullptr || wideValue[0] == 0) return nullptr;
    const std::size_t length = utf16ToUtf8(asUtf16(wideValue), nullptr, 0);
    const Buffer<char> value(length);
    if (value.get() == nullptr) return nullptr;
    utf16ToUtf8(asUtf16(wideValue), value.get(), length + 1);
    return makeSharedText(value.get());
}

LibraryHandle loadLib(const char* path, ErrorRecord** error) {
    // A path of the bridge has at most 1023 bytes, and no text has more units than bytes. The system's own
    // conversion: bytes that are no UTF-8 become replacement characters.
    wchar_t widePath[1024] = {};
    constexpr int capacity = sizeof widePath / sizeof widePath[0];
    const bool converted = MultiByteToWideChar(CP_UTF8, 0, path, -1, widePath, capacity) > 0;
    LibraryHandle library = converted ? LoadLibraryW(widePath) : nullptr;
    if (library == nullptr) {
        const DWORD code = GetLastError();
        char* reason = nullptr;
        FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                       nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<char*>(&reason), 0,
                       nullptr);
        *error = makeErrorRecord("loadLib", code, nullptr, "LoadLibrary failed (%i): %s", static_cast<int>(code),
                                 reason != nullptr ? reason : "");
        LocalFree(reason);
    }
    return library;
}

void* findSymbol(LibraryHandle library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

void freeLibrary(LibraryHandle library) { FreeLibrary(static_cast<HMODULE>(library)); }

}  // namespace KUtils::Python
