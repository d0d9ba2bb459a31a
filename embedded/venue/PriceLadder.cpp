#include "embedded/venue/PriceLadder.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Int64 Ten = 10;

Int64 FloorDivide(Int64 value, Int64 divisor) {
    const Int64 quotient = value / divisor;
    return value % divisor < 0 ? quotient - 1 : quotient;
}

} // namespace

bool TPriceLadder::Load(std::span<const TSpreadBand> bands, bool hasNegative) {
    std::vector<TBand> loaded;
    Int64 divisor = PriceUnit;
    TVenuePrice end = 0;
    for (const TSpreadBand& band : bands) {
        TBand next{};
        if (!TryToVenuePrice(band.From, next.From) || !TryToVenuePrice(band.Step, next.Step)) break;
        if (next.Step <= 0 || (!loaded.empty() && next.From != end)) return false;
        if (!loaded.empty()) {
            const TBand& last = loaded.back();
            const Int64 room = next.From - last.From;
            next.FirstTick = last.FirstTick + (room + last.Step - 1) / last.Step;
        }
        while (next.From % divisor != 0 || next.Step % divisor != 0) divisor /= Ten;
        loaded.push_back(next);
        // A last band may end beyond all that has a market.
        if (!TryToVenuePrice(band.To, end)) end = MaxVenuePrice;
        if (end <= next.From) return false;
    }
    if (loaded.empty()) return false;
    FBands = std::move(loaded);
    FDivisor = divisor;
    FScale = static_cast<Double>(PriceUnit / divisor);
    FLowest = hasNegative ? -MaxTick : Floor(0) + 1;
    return true;
}

TTick TPriceLadder::Floor(TVenuePrice price) const {
    std::size_t band = FBands.size() - 1;
    while (band > 0 && FBands[band].From > price) --band;
    const Int64 steps = FloorDivide(price - FBands[band].From, FBands[band].Step);
    const Int64 tick = FBands[band].FirstTick + steps;
    return static_cast<TTick>(std::clamp<Int64>(tick, -MaxTick, MaxTick));
}

TTick TPriceLadder::Ceil(TVenuePrice price) const {
    const TTick below = Floor(price);
    return Price(below) < price ? below + 1 : below;
}

TVenuePrice TPriceLadder::Price(TTick tick) const {
    std::size_t band = FBands.size() - 1;
    while (band > 0 && FBands[band].FirstTick > tick) --band;
    return FBands[band].From + (tick - FBands[band].FirstTick) * FBands[band].Step;
}

Double TPriceLadder::Value(TTick tick) const {
    return static_cast<Double>(Price(tick) / FDivisor) / FScale;
}

} // namespace quorin
