// The powers of ten with 128 significant bits, rounded up: 10^k = power * 2^(floorLog2Pow10(k) - 127),
// exactly for k from 0 to 55, else at most one unit of the last bit too much.
#pragma once

#include <cstdint>

namespace Offline {

__extension__ typedef unsigned __int128 Uint128;

constexpr int MIN_DECIMAL_POWER = -343;
constexpr int MAX_DECIMAL_POWER = 324;

// floor(log2(10^k)), for |k| up to 1233.
constexpr int floorLog2Pow10(int k) { return (k * 1741647) >> 19; }

Uint128 decimalPower(int k);

}  // namespace Offline
