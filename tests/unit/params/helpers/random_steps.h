// A small generator of numbers, the same on every system.
#pragma once

#include <cstdint>

class RandomSteps {
  public:
    RandomSteps(std::uint32_t seed, int steps) : state(seed * 2654435761u + 1u), left(steps) {}

    // True before each of the steps.
    bool more() { return left-- > 0; }

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
    int left;
};
