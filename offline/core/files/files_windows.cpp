#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "core/files/files.h"

namespace Offline {
namespace {

std::wstring wide(const char* text) {
    const int units = MultiByteToWideChar(CP_UTF8, 0, text, -1, nullptr, 0);
    std::wstring result(units > 0 ? static_cast<std::size_t>(units) : 1, L'\0');
    if (units > 0) MultiByteToWideChar(CP_UTF8, 0, text, -1, &result[0], units);
    result.pop_back();
    return result;
}

std::string narrow(const wchar_t* text) {
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string result(bytes > 0 ? static_cast<std::size_t>(bytes) : 1, '\0');
    if (bytes > 0) WideCharToMultiByte(CP_UTF8, 0, text, -1, &result[0], bytes, nullptr, nullptr);
    result.pop_back();
    return result;
}

const char* systemReason(DWORD code) {
    switch (code) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            return "No such file or directory";
        case ERROR_DIRECTORY:
            return "Not a directory";
        case ERROR_ACCESS_DENIED:
            return "Permission denied";
        default:
            return "the system refused";
    }
}

}  // namespace

std::FILE* openForReading(const char* path, std::string& reason) {
    const std::wstring name = wide(path);
    const DWORD attributes = GetFileAttributesW(name.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        reason = "it is a folder";
        return nullptr;
    }
    std::FILE* file = _wfopen(name.c_str(), L"rb");
    if (file == nullptr) reason = std::strerror(errno);
    return file;
}

bool listFiles(const char* directory, const char* ending, std::vector<std::string>& names, std::string& reason) {
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW((wide(directory) + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) {
        reason = systemReason(GetLastError());
        return false;
    }
    const std::size_t endingLength = std::strlen(ending);
    do {
        const std::string name = narrow(entry.cFileName);
        if (name.size() > endingLength && name.compare(name.size() - endingLength, endingLength, ending) == 0)
            names.push_back(name);
    } while (FindNextFileW(search, &entry) != 0);
    const DWORD ended = GetLastError();
    FindClose(search);
    std::sort(names.begin(), names.end());
    if (ended == ERROR_NO_MORE_FILES) return true;
    reason = systemReason(ended);
    return false;
}

}  // namespace Offline
