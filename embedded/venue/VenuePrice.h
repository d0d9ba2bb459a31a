#pragma once

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Types.h"

#include <cmath>

namespace quorin {

// The venue reckons prices in billionths, and in binary fractions only where a price comes in or
// goes out and where a root is taken, which every machine does to the same last bit.
using TVenuePrice = Int64;

inline constexpr TVenuePrice PriceUnit = 1'000'000'000;
// What is further from 0 has no market.
inline constexpr TVenuePrice MaxVenuePrice = 8'000'000 * PriceUnit;

inline bool TryToVenuePrice(Double value, TVenuePrice& price) {
    const Double scaled = value * static_cast<Double>(PriceUnit);
    if (!(std::fabs(scaled) <= static_cast<Double>(MaxVenuePrice))) return false;
    price = RoundToInt64(scaled);
    return true;
}

// value * factor / divisor, towards 0, where only (divisor - 1) * factor must fit.
inline Int64 MultiplyDivide(Int64 value, Int64 factor, Int64 divisor) {
    return value / divisor * factor + value % divisor * factor / divisor;
}

} // namespace quorin
