// What a fuzzer reads its decisions from: the bytes that it was given, in order. Past their end everything is zero.
//
// REQUIRE ends the process with the place and the condition, which is how a finding is reported.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#define REQUIRE(condition) ((condition) ? (void)0 : fuzz::found(__FILE__, __LINE__, #condition))

namespace fuzz {

[[noreturn]] inline void found(const char* file, int line, const char* condition) {
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
    std::abort();
}

class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : at(data), end(data + size) {}

    bool more() const { return at != end; }
    std::uint8_t byte() { return more() ? *at++ : 0; }

    // A number of [0, limit).
    int below(int limit) {
        unsigned number = byte();
        if (limit > 256) number = number << 8 | byte();
        return static_cast<int>(number % static_cast<unsigned>(limit));
    }
    // A number of [from, to].
    int between(int from, int to) { return from + below(to - from + 1); }

    std::string rest() {
        const std::string text(at, end);
        at = end;
        return text;
    }

  private:
    const std::uint8_t* at;
    const std::uint8_t* end;
};

}  // namespace fuzz
