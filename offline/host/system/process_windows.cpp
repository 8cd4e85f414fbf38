#include <windows.h>

#include <vector>

#include "host/system/process.h"

namespace Offline {

namespace {

HMODULE ownModule(DWORD flags) {
    HMODULE module = nullptr;
    const BOOL found = GetModuleHandleExW(flags | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                                          reinterpret_cast<LPCWSTR>(&ownFolder), &module);
    return found ? module : nullptr;
}

}  // namespace

std::string ownFolder() {
    const HMODULE module = ownModule(GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT);
    if (module == nullptr) return {};
    std::vector<wchar_t> wide(512);
    DWORD length = GetModuleFileNameW(module, wide.data(), static_cast<DWORD>(wide.size()));
    while (length == wide.size()) {  // cut: the system does not say how long it is
        wide.resize(wide.size() * 2);
        length = GetModuleFileNameW(module, wide.data(), static_cast<DWORD>(wide.size()));
    }
    const int wideLength = static_cast<int>(length);
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), wideLength, nullptr, 0, nullptr, nullptr);
    std::string file(static_cast<std::size_t>(bytes), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), wideLength, &file[0], bytes, nullptr, nullptr);
    for (char& c : file) c = c == '\\' ? '/' : c;
    const std::size_t slash = file.rfind('/');
    return slash == std::string::npos ? std::string(".") : file.substr(0, slash);
}

void keepLoaded() { ownModule(GET_MODULE_HANDLE_EX_FLAG_PIN); }

std::uint64_t currentThread() { return GetCurrentThreadId(); }

}  // namespace Offline
