#include <wchar.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "support/library.h"

namespace support {

namespace {

std::wstring widen(const std::string& text) {
    const int length = static_cast<int>(text.size());
    std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)),
                      L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, &wide[0], static_cast<int>(wide.size()));
    return wide;
}

}  // namespace

void* openLibrary(const std::string& path, std::string& error) {
    const HMODULE library = LoadLibraryW(widen(path).c_str());
    if (library == nullptr) {
        char text[64];
        std::snprintf(text, sizeof text, "LoadLibrary failed (%lu)", GetLastError());
        error = text;
    }
    return reinterpret_cast<void*>(library);
}

void* findSymbol(void* library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

std::string environment(const char* name) {
    const wchar_t* value = _wgetenv(widen(name).c_str());
    if (value == nullptr) return {};
    const int length = static_cast<int>(wcslen(value));
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, value, length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, value, length, &text[0], bytes, nullptr, nullptr);
    return text;
}

bool setEnvironment(const char* name, const char* value) {
    // An empty value removes the variable in this runtime.
    const std::wstring assignment = widen(std::string(name) + "=" + (value != nullptr ? value : ""));
    return _wputenv(assignment.c_str()) == 0;
}

}  // namespace support
