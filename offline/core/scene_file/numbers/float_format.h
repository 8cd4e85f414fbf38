// What the number conversions must know of the two binary formats.
#pragma once

#include <cstdint>
#include <cstring>

namespace Offline {

template <class Float>
struct FloatFormat;

template <>
struct FloatFormat<float> {
    using Bits = std::uint32_t;
    static constexpr int PRECISION = 24;         // significant bits, the hidden one included
    static constexpr int MIN_UNIT = -149;        // exponent of the last bit of the smallest numbers
    static constexpr int EXPONENT_FIELDS = 255;  // the field of infinities
};

template <>
struct FloatFormat<double> {
    using Bits = std::uint64_t;
    static constexpr int PRECISION = 53;
    static constexpr int MIN_UNIT = -1074;
    static constexpr int EXPONENT_FIELDS = 2047;
};

template <class Float>
typename FloatFormat<Float>::Bits bitsOf(Float value) {
    typename FloatFormat<Float>::Bits bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

template <class Float>
Float fromBits(typename FloatFormat<Float>::Bits bits) {
    Float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

}  // namespace Offline
