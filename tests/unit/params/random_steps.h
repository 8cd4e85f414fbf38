// A small generator of numbers, the same on every system.
#pragma once

#include <cstdint>

class RandomSteps {
  public:
    explicit RandomSteps(std::uint32_t seed) : state(seed * 2654435761u + 1u) {}

    // A number of [0, limit).
    int below(int limit) {
        state ^= state << 13;
        state ^= state >> 17;
        state ^= state << 5;
        return static_cast<int>(state % static_cast<std::uint32_t>(limit));
    }

    // A number of [from, to].
    int between(int from, int to) { return from + below(to - from + 1); }

  private:
    std::uint32_t state;
};
