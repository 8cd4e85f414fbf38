#include <windows.h>

#include <cstdio>

#include "core/files/replacing_file.h"

namespace Offline {
namespace {

constexpr int ATTEMPTS = 100;
constexpr std::size_t LARGEST_WRITE = std::size_t{1} << 30;

std::wstring wide(const std::string& text) {
    const int units = MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, nullptr, 0);
    std::wstring result(units > 0 ? static_cast<std::size_t>(units) : 1, L'\0');
    if (units > 0) MultiByteToWideChar(CP_UTF8, 0, text.c_str(), -1, &result[0], units);
    result.pop_back();
    return result;
}

bool failed(std::string& reason) {
    const DWORD code = GetLastError();
    switch (code) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            reason = "No such file or directory";
            break;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
            reason = "Permission denied";
            break;
        case ERROR_DISK_FULL:
            reason = "No space left on device";
            break;
        default: {
            char text[40];
            std::snprintf(text, sizeof text, "system error %lu", static_cast<unsigned long>(code));
            reason = text;
        }
    }
    return false;
}

}  // namespace

bool ReplacingFile::open(const char* path, std::string& reason) {
    target = path;
    const DWORD attributes = GetFileAttributesW(wide(target).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            reason = "it is a folder";
            return false;
        }
        if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            reason = "Permission denied";
            return false;
        }
    }
    for (int attempt = 0; attempt < ATTEMPTS; ++attempt) {
        char ending[40];
        std::snprintf(ending, sizeof ending, ".%lu-%d", static_cast<unsigned long>(GetCurrentProcessId()), attempt);
        const std::string name = target + ending;
        handle = CreateFileW(wide(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle != INVALID_HANDLE_VALUE) {
            aside = name;
            return true;
        }
        handle = nullptr;
        if (GetLastError() != ERROR_FILE_EXISTS) break;
    }
    return failed(reason);
}

bool ReplacingFile::writeThrough(const char* data, std::size_t length, std::string& reason) {
    while (length != 0) {
        const auto part = static_cast<DWORD>(length < LARGEST_WRITE ? length : LARGEST_WRITE);
        DWORD written = 0;
        if (!WriteFile(handle, data, part, &written, nullptr)) return failed(reason);
        data += written;
        length -= written;
    }
    return true;
}

bool ReplacingFile::commit(std::string& reason) {
    if (!flush(reason)) return false;
    if (!FlushFileBuffers(handle)) return failed(reason);
    close();
    if (!MoveFileExW(wide(aside).c_str(), wide(target).c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return failed(reason);
    aside.clear();
    return true;
}

void ReplacingFile::close() {
    if (handle != nullptr) CloseHandle(handle);
    handle = nullptr;
}

ReplacingFile::~ReplacingFile() {
    close();
    if (!aside.empty()) DeleteFileW(wide(aside).c_str());
}

}  // namespace Offline
