// Random bit patterns of finite numbers, the same on every system.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstring>

class RandomBits {
  public:
    explicit RandomBits(std::uint64_t seed) : state(seed) {}

    std::uint64_t next() {
        std::uint64_t bits = state += 0x9e3779b97f4a7c15u;
        bits = (bits ^ bits >> 30) * 0xbf58476d1ce4e5b9u;
        bits = (bits ^ bits >> 27) * 0x94d049bb133111ebu;
        return bits ^ bits >> 31;
    }

    float nextFloat() { return finite<float, std::uint32_t>(); }
    double nextDouble() { return finite<double, std::uint64_t>(); }

  private:
    template <class Float, class Bits>
    Float finite() {
        Float value;
        do {
            const Bits bits = static_cast<Bits>(next());
            std::memcpy(&value, &bits, sizeof value);
        } while (!std::isfinite(value));
        return value;
    }

    std::uint64_t state;
};
