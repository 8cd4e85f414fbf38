// A small test header for what runs on both systems: cases, comparisons, an exit code. No streams, because
// the C++ library of the Windows leg has none.
//
//   TEST_CASE(name) { CHECK(condition); CHECK_EQ(actual, expected); CHECK_TEXT(actual, expected); }
//   for (const Row& row : rows) { CHECK_ROW(row.label); CHECK(...); }   // the row stands in the failure
//   int main(int argc, char** argv) { return check::run(argc, argv); }  // an argument picks cases by substring
#pragma once

#include <cstddef>
#include <cstdio>
#include <cstring>

namespace check {

struct Case {
    const char* name;
    void (*body)();
    Case* next;
};

inline Case*& firstCase() {
    static Case* first = nullptr;
    return first;
}

inline const char*& rowLabel() {
    static const char* label = nullptr;
    return label;
}

inline int& failures() {
    static int count = 0;
    return count;
}

struct Register {
    explicit Register(Case* entry) {
        Case** link = &firstCase();
        while (*link != nullptr) link = &(*link)->next;
        *link = entry;
    }
};

inline void fail(const char* file, int line, const char* what) {
    ++failures();
    std::printf("%s:%d: failed: %s", file, line, what);
    if (rowLabel() != nullptr) std::printf(" [row: %s]", rowLabel());
    std::printf("\n");
}

inline void print(bool value) { std::printf("%s", value ? "true" : "false"); }
inline void print(double value) { std::printf("%.17g", value); }
inline void print(float value) { std::printf("%.9g", static_cast<double>(value)); }
inline void print(long long value) { std::printf("%lld", value); }
inline void print(unsigned long long value) { std::printf("%llu", value); }
inline void print(long value) { print(static_cast<long long>(value)); }
inline void print(unsigned long value) { print(static_cast<unsigned long long>(value)); }
inline void print(int value) { print(static_cast<long long>(value)); }
inline void print(unsigned value) { print(static_cast<unsigned long long>(value)); }
inline void print(const void* value) { std::printf("%p", value); }
inline void print(std::nullptr_t) { std::printf("null"); }

template <class A, class B>
void equal(const char* file, int line, const char* what, const A& actual, const B& expected) {
    if (actual == expected) return;
    fail(file, line, what);
    std::printf("    actual:   ");
    print(actual);
    std::printf("\n    expected: ");
    print(expected);
    std::printf("\n");
}

inline void text(const char* file, int line, const char* what, const char* actual, const char* expected) {
    if (actual == expected) return;
    if (actual != nullptr && expected != nullptr && std::strcmp(actual, expected) == 0) return;
    fail(file, line, what);
    std::printf("    actual:   %s\n    expected: %s\n", actual != nullptr ? actual : "(null)",
                expected != nullptr ? expected : "(null)");
}

// Runs the cases whose name contains one of the arguments (all without one); prints the closing line.
inline int run(int argc, char** argv) {
    int passed = 0;
    int failed = 0;
    for (Case* entry = firstCase(); entry != nullptr; entry = entry->next) {
        bool wanted = argc < 2;
        for (int i = 1; i < argc; ++i) wanted = wanted || std::strstr(entry->name, argv[i]) != nullptr;
        if (!wanted) continue;
        const int before = failures();
        rowLabel() = nullptr;
        entry->body();
        if (failures() == before) {
            ++passed;
        } else {
            ++failed;
            std::printf("case %s failed\n", entry->name);
        }
    }
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 && passed > 0 ? 0 : 1;
}

}  // namespace check

#define TEST_CASE(name)                                           \
    static void name();                                           \
    static check::Case name##Case = {#name, name, nullptr};       \
    static const check::Register name##Registration(&name##Case); \
    static void name()
#define CHECK_ROW(label) (check::rowLabel() = (label))
#define CHECK(condition) ((condition) ? (void)0 : check::fail(__FILE__, __LINE__, #condition))
#define CHECK_EQ(actual, expected) check::equal(__FILE__, __LINE__, #actual " == " #expected, (actual), (expected))
#define CHECK_TEXT(actual, expected) check::text(__FILE__, __LINE__, #actual, (actual), (expected))
