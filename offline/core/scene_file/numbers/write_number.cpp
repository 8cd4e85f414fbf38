// Shortest decimal texts by the method of "The Schubfach way to render doubles" (Raffaello Giulietti, 2021):
// scale the number and the borders of its rounding interval by a power of ten, keep a sticky bit, and pick
// the shortest, then nearest, integer between the borders.
#include "core/scene_file/numbers/decimal_powers.h"
#include "core/scene_file/numbers/float_format.h"
#include "core/scene_file/numbers/numbers.h"

namespace Offline {
namespace {

struct Decimal {
    std::uint64_t digits;
    int exponent;
};

// floor(power * factor / 2^128) with the last bit set when anything was cut off.
std::uint64_t scaleToOdd(Uint128 power, std::uint64_t factor) {
    const Uint128 low = static_cast<Uint128>(static_cast<std::uint64_t>(power)) * factor;
    const Uint128 high = static_cast<Uint128>(static_cast<std::uint64_t>(power >> 64)) * factor + (low >> 64);
    return static_cast<std::uint64_t>(high >> 64) | (static_cast<std::uint64_t>(high) > 1 ? 1u : 0u);
}

// The number is significand * 2^unit; `closerBelow`: its lower neighbour is only half a unit away.
Decimal shortestDecimal(std::uint64_t significand, int unit, bool closerBelow) {
    const std::uint64_t open = significand & 1u;  // the borders belong to the interval of even numbers
    const int k = (unit * 1262611 - (closerBelow ? 524031 : 0)) >> 22;
    const int shift = unit + floorLog2Pow10(-k) + 1;
    const Uint128 power = decimalPower(-k);
    const std::uint64_t lower = scaleToOdd(power, (4 * significand - 2 + (closerBelow ? 1 : 0)) << shift) + open;
    const std::uint64_t value = scaleToOdd(power, 4 * significand << shift);
    const std::uint64_t upper = scaleToOdd(power, (4 * significand + 2) << shift) - open;

    const std::uint64_t whole = value / 4;
    if (whole >= 10) {
        const std::uint64_t tens = whole / 10;
        const bool downInside = lower <= 40 * tens;
        const bool upInside = 40 * tens + 40 <= upper;
        if (downInside != upInside) return {tens + (upInside ? 1 : 0), k + 1};
    }
    const bool downInside = lower <= 4 * whole;
    const bool upInside = 4 * whole + 4 <= upper;
    if (downInside != upInside) return {whole + (upInside ? 1 : 0), k};
    const std::uint64_t middle = 4 * whole + 2;
    const bool up = value > middle || (value == middle && (whole & 1u) != 0);
    return {whole + (up ? 1 : 0), k};
}

template <class Float>
Decimal toDecimal(typename FloatFormat<Float>::Bits bits) {
    using Format = FloatFormat<Float>;
    constexpr std::uint64_t HIDDEN = std::uint64_t{1} << (Format::PRECISION - 1);
    const std::uint64_t fraction = bits & (HIDDEN - 1);
    const int field = static_cast<int>(bits >> (Format::PRECISION - 1)) & Format::EXPONENT_FIELDS;
    if (field == 0) return shortestDecimal(fraction, Format::MIN_UNIT, false);
    const std::uint64_t significand = fraction | HIDDEN;
    const int unit = Format::MIN_UNIT + field - 1;
    // Below 2^PRECISION integers are exact, and their neighbours too far away for a shorter text.
    if (unit <= 0 && unit > -Format::PRECISION && (significand & ((std::uint64_t{1} << -unit) - 1)) == 0)
        return {significand >> -unit, 0};
    return shortestDecimal(significand, unit, fraction == 0 && field > 1);
}

std::size_t writeExponent(char* out, int exponent) {
    std::size_t length = 0;
    out[length++] = 'e';
    if (exponent < 0) out[length++] = '-';
    const int magnitude = exponent < 0 ? -exponent : exponent;
    if (magnitude >= 100) out[length++] = static_cast<char>('0' + magnitude / 100);
    if (magnitude >= 10) out[length++] = static_cast<char>('0' + magnitude / 10 % 10);
    out[length++] = static_cast<char>('0' + magnitude % 10);
    return length;
}

// Lays `count` digits out with the point `point` digits behind their start.
std::size_t layOut(char* out, const char* digits, int count, int point) {
    std::size_t length = 0;
    const auto put = [&](const char* from, int n) {
        for (int i = 0; i < n; ++i) out[length++] = from != nullptr ? from[i] : '0';
    };
    if (point > -6 && point <= 0) {
        put("0.", 2);
        put(nullptr, -point);
        put(digits, count);
    } else if (point > 0 && point <= 21) {
        put(digits, count < point ? count : point);
        put(nullptr, point - count);
        if (count > point) put(".", 1);
        put(digits + point, count - point);
    } else {
        put(digits, 1);
        if (count > 1) put(".", 1);
        put(digits + 1, count - 1);
        length += writeExponent(out + length, point - 1);
    }
    return length;
}

template <class Float>
std::size_t writeNumber(char* out, Float value) {
    std::size_t length = 0;
    typename FloatFormat<Float>::Bits bits = bitsOf(value);
    const bool negative = bits >> (sizeof bits * 8 - 1) != 0;
    if (negative) out[length++] = '-';
    bits = static_cast<decltype(bits)>(bits << 1) >> 1;
    if (bits == 0) {
        out[length++] = '0';
        return length;
    }
    Decimal decimal = toDecimal<Float>(bits);
    for (; decimal.digits % 10 == 0; ++decimal.exponent) decimal.digits /= 10;
    char digits[20];
    int first = 20;
    for (; decimal.digits != 0; decimal.digits /= 10) digits[--first] = static_cast<char>('0' + decimal.digits % 10);
    return length + layOut(out + length, digits + first, 20 - first, decimal.exponent + 20 - first);
}

}  // namespace

std::size_t writeFloat(char* out, float value) { return writeNumber(out, value); }
std::size_t writeDouble(char* out, double value) { return writeNumber(out, value); }

}  // namespace Offline
