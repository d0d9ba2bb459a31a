#pragma once

#include "embedded/SpreadTable.h"
#include "embedded/venue/VenuePrice.h"

#include <limits>
#include <span>
#include <vector>

namespace quorin {

// A price as the number of steps from the lower end of its tick table.
using TTick = Integer;

// The prices that may be quoted, one below the other: what is one step apart is one tick apart in
// any band of the table.
class TPriceLadder {
public:
    // `hasNegative`: the first band's step also goes on downwards, for price differences. False,
    // and nothing changes, for bands that are not in order or whose step is not above 0.
    bool Load(std::span<const TSpreadBand> bands, bool hasNegative);

    // The tick at the price or the next one below; the next one above.
    TTick Floor(TVenuePrice price) const;
    TTick Ceil(TVenuePrice price) const;
    TVenuePrice Price(TTick tick) const;
    // The price as a number with clean digits.
    Double Value(TTick tick) const;
    // The first price above 0, without negative prices; otherwise a tick below all others.
    TTick Lowest() const { return FLowest; }

    // Ticks stay within this distance from 0.
    static constexpr TTick MaxTick = 1'000'000'000;

private:
    struct TBand {
        TVenuePrice From;
        TVenuePrice Step;
        Int64 FirstTick;
    };

    std::vector<TBand> FBands;
    TTick FLowest = 0;
    Int64 FDivisor = 1; // from billionths to the units of the finest decimal
    Double FScale = 1.0;
};

} // namespace quorin
