#include "core/scene_file/numbers/decimal_powers.h"

#include "core/scene_file/numbers/bignum.h"

namespace Offline {
namespace {

struct PowerTable {
    Uint128 powers[MAX_DECIMAL_POWER - MIN_DECIMAL_POWER + 1];
    bool filled;
};

PowerTable table;

// 5^k has the same significant bits as 10^k.
Uint128 positivePower(const Bignum& powerOf5) {
    const int length = powerOf5.bitLength();
    Uint128 top = 0;
    for (int i = 1; i <= 128; ++i) top = top << 1 | static_cast<Uint128>(length >= i && powerOf5.bit(length - i));
    for (int i = 0; i < length - 128; ++i)
        if (powerOf5.bit(i)) return top + 1;
    return top;
}

// The 128 leading bits of 1 / 5^k, by long division.
Uint128 negativePower(const Bignum& powerOf5) {
    Bignum rest(1);
    rest.shiftLeft(powerOf5.bitLength());
    Uint128 quotient = 0;
    for (int i = 0; i < 128; ++i) {
        quotient <<= 1;
        if (rest.compare(powerOf5) >= 0) {
            rest.subtract(powerOf5);
            quotient |= 1;
        }
        rest.shiftLeft(1);
    }
    return quotient + 1;
}

void fillTable() {
    Bignum powerOf5(1);
    for (int k = 0; k <= -MIN_DECIMAL_POWER; ++k) {
        if (k <= MAX_DECIMAL_POWER) table.powers[k - MIN_DECIMAL_POWER] = positivePower(powerOf5);
        if (k > 0) table.powers[-k - MIN_DECIMAL_POWER] = negativePower(powerOf5);
        powerOf5.multiplyAdd(5, 0);
    }
    table.filled = true;
}

}  // namespace

Uint128 decimalPower(int k) {
    if (!table.filled) fillTable();
    return table.powers[k - MIN_DECIMAL_POWER];
}

}  // namespace Offline
