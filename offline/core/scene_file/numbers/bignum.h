// A small natural number of up to 6144 bits, for the few steps of number conversion that must be exact.
#pragma once

#include <cstdint>

namespace Offline {

class Bignum {
  public:
    explicit Bignum(std::uint64_t value = 0) {
        multiplyAdd(0, static_cast<std::uint32_t>(value >> 32));
        shiftLeft(32);
        if (count == 0 && static_cast<std::uint32_t>(value) != 0) count = 1;
        if (count != 0) words[0] = static_cast<std::uint32_t>(value);
    }

    // this = this * factor + addend
    void multiplyAdd(std::uint32_t factor, std::uint32_t addend) {
        std::uint64_t carry = addend;
        for (int i = 0; i < count; ++i) {
            carry += static_cast<std::uint64_t>(words[i]) * factor;
            words[i] = static_cast<std::uint32_t>(carry);
            carry >>= 32;
        }
        if (carry != 0) words[count++] = static_cast<std::uint32_t>(carry);
        trim();
    }

    void multiplyByPowerOf5(int exponent) {
        for (; exponent >= 13; exponent -= 13) multiplyAdd(1220703125u, 0);
        for (; exponent > 0; --exponent) multiplyAdd(5, 0);
    }

    void shiftLeft(int bits) {
        if (count == 0) return;
        const int whole = bits / 32;
        const int rest = bits % 32;
        words[count] = 0;
        for (int i = count; i >= 0; --i) {
            std::uint64_t pair = static_cast<std::uint64_t>(words[i]) << 32;
            if (i > 0) pair |= words[i - 1];
            words[i + whole] = static_cast<std::uint32_t>((pair << rest) >> 32);
        }
        for (int i = 0; i < whole; ++i) words[i] = 0;
        count += whole + 1;
        trim();
    }

    // this -= other, which is not larger.
    void subtract(const Bignum& other) {
        std::int64_t borrow = 0;
        for (int i = 0; i < count; ++i) {
            borrow += static_cast<std::int64_t>(words[i]) - (i < other.count ? other.words[i] : 0u);
            words[i] = static_cast<std::uint32_t>(borrow);
            borrow >>= 32;
        }
        trim();
    }

    // Negative, zero or positive as this is smaller than, equal to or larger than `other`.
    int compare(const Bignum& other) const {
        if (count != other.count) return count - other.count;
        for (int i = count - 1; i >= 0; --i)
            if (words[i] != other.words[i]) return words[i] < other.words[i] ? -1 : 1;
        return 0;
    }

    int bitLength() const {
        if (count == 0) return 0;
        int bits = count * 32;
        for (std::uint32_t top = words[count - 1]; (top & 0x80000000u) == 0; top <<= 1) --bits;
        return bits;
    }

    bool bit(int index) const { return (words[index / 32] >> (index % 32) & 1u) != 0; }

  private:
    void trim() {
        while (count > 0 && words[count - 1] == 0) --count;
    }

    std::uint32_t words[192];
    int count = 0;
};

}  // namespace Offline
