#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Answer of TPriceDecimals where the price step is not known.
inline constexpr Integer UnknownDecimals = -1;

// Writes a price with that many decimals, or with more, up to 8, where it would read as another
// one; with 2 to 8 as it needs for UnknownDecimals.
void AppendPrice(String& target, Double price, Integer decimals);

// How many decimals the market writes a symbol's prices with.
class TPriceDecimals {
public:
    // Those of the price step in force at `price`: of the symbol's tick table or, without one, of
    // the live item's own tick size. UnknownDecimals for the empty and for an unknown symbol.
    Integer Find(StringView symbol, Double price) const;

private:
    mutable String FText;           // a field's text, kept for its room
    mutable Double FLastStep = 0.0; // which has been told last, and its decimals
    mutable Integer FLastDecimals = UnknownDecimals;
};

} // namespace quorin
