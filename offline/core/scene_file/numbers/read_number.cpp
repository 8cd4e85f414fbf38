// Reading decimal numbers: nineteen digits and a power of ten of 128 bits decide nearly always; where the
// product lies too close to the border between two numbers, or there are more digits, the text is
// compared with that border exactly.
#include "core/scene_file/numbers/bignum.h"
#include "core/scene_file/numbers/decimal_powers.h"
#include "core/scene_file/numbers/float_format.h"
#include "core/scene_file/numbers/numbers.h"

namespace Offline {
namespace {

// No border between two numbers has more significant digits; what follows only breaks ties.
constexpr int MAX_DIGITS = 800;
constexpr int LEADING_DIGITS = 19;

struct DecimalText {
    bool negative = false;
    char digits[MAX_DIGITS + 1];  // significant ones, no leading zeros
    int count = 0;
    int exponent = 0;  // value = 0.DIGITS * 10^exponent
};

DecimalText split(const char* text, std::size_t length) {
    DecimalText result;
    const char* at = text;
    const char* end = text + length;
    if (at != end && *at == '-') {
        result.negative = true;
        ++at;
    }
    bool fraction = false;
    long long exponent = 0;
    bool cut = false;
    for (; at != end && *at != 'e' && *at != 'E'; ++at) {
        if (*at == '.') {
            fraction = true;
            continue;
        }
        if (result.count == 0 && *at == '0') {
            if (fraction) --exponent;
            continue;
        }
        if (!fraction) ++exponent;
        if (result.count < MAX_DIGITS) {
            result.digits[result.count++] = *at;
        } else {
            cut = cut || *at != '0';
        }
    }
    if (cut) result.digits[result.count++] = '1';
    if (at != end) {
        ++at;
        const bool negative = *at == '-';
        if (*at == '-' || *at == '+') ++at;
        long long written = 0;
        for (; at != end; ++at)
            if (written < 1000000000000) written = written * 10 + (*at - '0');
        exponent += negative ? -written : written;
    }
    if (exponent > 100000) exponent = 100000;
    if (exponent < -100000) exponent = -100000;
    result.exponent = static_cast<int>(exponent);
    return result;
}

// Compares the text with (2 * significand + 1) * 2^(unit - 1), the border above `significand`.
int compareWithBorder(const DecimalText& text, std::uint64_t significand, int unit) {
    Bignum left;
    for (int i = 0; i < text.count; ++i) left.multiplyAdd(10, static_cast<std::uint32_t>(text.digits[i] - '0'));
    Bignum right(2 * significand + 1);
    const int power10 = text.exponent - text.count;
    int power2 = power10 - (unit - 1);
    if (power10 >= 0) {
        left.multiplyByPowerOf5(power10);
    } else {
        right.multiplyByPowerOf5(-power10);
    }
    if (power2 >= 0) {
        left.shiftLeft(power2);
    } else {
        right.shiftLeft(-power2);
    }
    return left.compare(right);
}

// The bits of the number, which is not negative; the bits of infinity or more when it is too large.
template <class Float>
std::uint64_t round(const DecimalText& text) {
    using Format = FloatFormat<Float>;
    constexpr std::uint64_t INFINITE = static_cast<std::uint64_t>(Format::EXPONENT_FIELDS) << (Format::PRECISION - 1);
    if (text.count == 0 || text.exponent < -324) return 0;
    if (text.exponent > 310) return INFINITE;

    std::uint64_t leading = 0;
    const int used = text.count < LEADING_DIGITS ? text.count : LEADING_DIGITS;
    for (int i = 0; i < used; ++i) leading = leading * 10 + static_cast<std::uint64_t>(text.digits[i] - '0');
    int zeros = 0;
    for (; leading >> 63 == 0; leading <<= 1) ++zeros;

    // value = product * 2^scale, with an error of less than 2 below.
    const int power10 = text.exponent - used;
    const Uint128 power = decimalPower(power10);
    const Uint128 low = static_cast<Uint128>(static_cast<std::uint64_t>(power)) * leading;
    const Uint128 product = static_cast<Uint128>(static_cast<std::uint64_t>(power >> 64)) * leading + (low >> 64);
    const int scale = floorLog2Pow10(power10) - 63 - zeros;

    const int top = (product >> 127) != 0 ? 127 : 126;
    int unit = top + scale - (Format::PRECISION - 1);
    if (unit < Format::MIN_UNIT) unit = Format::MIN_UNIT;
    const int dropped = unit - scale;
    const std::uint64_t base = static_cast<std::uint64_t>(unit - Format::MIN_UNIT) << (Format::PRECISION - 1);
    if (dropped < 128 && text.count <= LEADING_DIGITS) {
        const Uint128 half = static_cast<Uint128>(1) << (dropped - 1);
        const Uint128 rest = product & ((half << 1) - 1);
        const std::uint64_t significand = static_cast<std::uint64_t>(product >> dropped);
        if (rest >= 3 && rest + 3 <= half) return base + significand;
        if (rest >= half + 3 && (half << 1) - rest >= 3) return base + significand + 1;
    }
    const std::uint64_t floor = dropped < 128 ? static_cast<std::uint64_t>((product - 2) >> dropped) : 0;
    const int order = compareWithBorder(text, floor, unit);
    return base + floor + (order > 0 || (order == 0 && (floor & 1u) != 0) ? 1 : 0);
}

template <class Float>
bool readNumber(const char* text, std::size_t length, Float& value) {
    using Bits = typename FloatFormat<Float>::Bits;
    constexpr int SIGN = sizeof(Bits) * 8 - 1;
    const DecimalText decimal = split(text, length);
    const Bits bits = static_cast<Bits>(round<Float>(decimal));
    constexpr Bits INFINITE = static_cast<Bits>(FloatFormat<Float>::EXPONENT_FIELDS)
                              << (FloatFormat<Float>::PRECISION - 1);
    if (bits >= INFINITE) return false;
    value = fromBits<Float>(bits | static_cast<Bits>(decimal.negative ? Bits{1} << SIGN : 0));
    return true;
}

}  // namespace

bool readFloat(const char* text, std::size_t length, float& value) { return readNumber(text, length, value); }
bool readDouble(const char* text, std::size_t length, double& value) { return readNumber(text, length, value); }

}  // namespace Offline
