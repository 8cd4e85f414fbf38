// What a probe object was asked: every virtual operation of a probe notes its name and arguments, and the
// tests compare the note with what they called through the raw table.
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

inline std::string& lastCall() {
    static std::string text;
    return text;
}

inline std::string describeValue(bool value) { return value ? "true" : "false"; }
inline std::string describeValue(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.9g", value);
    return text;
}
inline std::string describeValue(long long value) {
    char text[40];
    std::snprintf(text, sizeof text, "%lld", value);
    return text;
}
inline std::string describeValue(int value) { return describeValue(static_cast<long long>(value)); }
inline std::string describeValue(std::uint32_t value) { return describeValue(static_cast<long long>(value)); }
inline std::string describeValue(const void* value) {
    char text[40];
    std::snprintf(text, sizeof text, "%p", value);
    return text;
}

template <class... Arguments>
std::string describe(const char* operation, Arguments... arguments) {
    std::string text = operation;
    ((text += ' ', text += describeValue(arguments)), ...);
    return text;
}

template <class... Arguments>
void note(const char* operation, Arguments... arguments) {
    lastCall() = describe(operation, arguments...);
}

// Compares and forgets the note, so that a slot that calls nothing is found out.
#define CHECK_CALLED(...)                                       \
    do {                                                        \
        const std::string expectedCall = describe(__VA_ARGS__); \
        CHECK_TEXT(lastCall().c_str(), expectedCall.c_str());   \
        lastCall().clear();                                     \
    } while (false)
