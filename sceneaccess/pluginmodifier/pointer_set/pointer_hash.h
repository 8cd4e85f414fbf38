// The hash of the owned-value set: Bob Jenkins's lookup3, its hashword form over the two 32-bit halves of
// an address, initial value 0. The host computes the same one, so it never changes.
#pragma once

#include <cstdint>

namespace KUtils {

struct PointerHash {
    static constexpr std::uint32_t rotate(std::uint32_t value, int bits) {
        return (value << bits) | (value >> (32 - bits));
    }

    constexpr std::uint32_t operator()(std::uint64_t key) const {
        const std::uint32_t start = 0xdeadbeef + 8;  // two words of four bytes
        std::uint32_t a = static_cast<std::uint32_t>(key) + start;
        std::uint32_t b = static_cast<std::uint32_t>(key >> 32) + start;
        std::uint32_t c = start;
        c = (c ^ b) - rotate(b, 14);
        a = (a ^ c) - rotate(c, 11);
        b = (b ^ a) - rotate(a, 25);
        c = (c ^ b) - rotate(b, 16);
        a = (a ^ c) - rotate(c, 4);
        b = (b ^ a) - rotate(a, 14);
        return (c ^ b) - rotate(b, 24);
    }
};

}  // namespace KUtils
