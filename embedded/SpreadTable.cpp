#include "embedded/SpreadTable.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quorin {

namespace {

constexpr Double Unbounded = std::numeric_limits<Double>::max();

constexpr int MaxDecimals = 9;
constexpr Double MaxUnits = 9e15;      // below this every whole number of units is a Double
constexpr Double UnitTolerance = 1e-4; // in units: what a price may lie off by its binary fraction

constexpr Double BinaryNoise = 1e-9; // of a number that was written down, as a part of it

// The whole number that `value` is within the tolerance.
bool TryToUnits(Double value, Double scale, Double tolerance, Int64& units) {
    const Double scaled = value * scale;
    if (!(std::fabs(scaled) < MaxUnits)) return false;
    const Double whole = std::nearbyint(scaled);
    units = static_cast<Int64>(whole);
    return std::fabs(scaled - whole) <= tolerance;
}

// For the borders and steps of a table: other than prices they are not worked out.
bool TryToExactUnits(Double value, Double scale, Int64& units) {
    const Double noise = BinaryNoise * std::max(1.0, std::fabs(value * scale));
    return TryToUnits(value, scale, std::min(noise, UnitTolerance), units);
}

Int64 FloorDivide(Int64 value, Int64 divisor) {
    const Int64 quotient = value / divisor;
    return value % divisor < 0 ? quotient - 1 : quotient;
}

Int64 CeilDivide(Int64 value, Int64 divisor) {
    return -FloorDivide(-value, divisor);
}

} // namespace

bool TEmbeddedSpreadTable::Load(std::span<const TSpreadBand> bands) {
    Double scale = 1.0;
    for (int decimals = 0; decimals <= MaxDecimals; ++decimals, scale *= 10.0) {
        std::vector<TBand> loaded;
        for (const TSpreadBand& band : bands) {
            if (!(band.Step > 0.0)) return false;
            TBand units{};
            if (!TryToExactUnits(band.From, scale, units.From) ||
                !TryToExactUnits(band.To, scale, units.To) ||
                !TryToExactUnits(band.Step, scale, units.Step) || units.Step == 0) {
                break;
            }
            if (units.To <= units.From) return false;
            if (!loaded.empty() && loaded.back().To != units.From) return false;
            loaded.push_back(units);
        }
        if (bands.empty() || loaded.size() != bands.size()) continue;
        FBands = std::move(loaded);
        FScale = scale;
        return true;
    }
    return false;
}

Double TEmbeddedSpreadTable::MovePrice(Double Price, Integer Steps) const {
    TPosition position{};
    if (Steps == 0 || FBands.empty() || !ToPosition(Price, position)) return Price;
    const Int64 units =
        Steps > 0 ? MoveUp(position, Steps) : MoveDown(position, -static_cast<Int64>(Steps));
    return static_cast<Double>(units) / FScale;
}

Double TEmbeddedSpreadTable::GetSpreadUp(Double Price, Double& Upper, Double& Lower) const {
    Upper = Lower = 0.0;
    TPosition position{};
    if (FBands.empty() || !ToPosition(Price, position)) return 0.0;
    return Answer(BandUp(position), position, Upper, Lower);
}

Double TEmbeddedSpreadTable::GetSpreadDown(Double Price, Double& Upper, Double& Lower) const {
    Upper = Lower = 0.0;
    TPosition position{};
    if (FBands.empty() || !ToPosition(Price, position)) return 0.0;
    return Answer(BandDown(position), position, Upper, Lower);
}

bool TEmbeddedSpreadTable::IsOnStep(Double price) const {
    TPosition position{};
    if (FBands.empty()) return true;
    if (!ToPosition(price, position) || position.IsBetween) return false;
    const TBand& band = FBands[BandUp(position)]; // its lower end is a step, wherever others ended
    return (position.Below - band.From) % band.Step == 0;
}

// A price beyond the table still lies within the bounds of its band: a field that finds it outside
// would take the next step down for one that has left the band upwards.
Double TEmbeddedSpreadTable::Answer(std::size_t band, TPosition position, Double& upper,
                                    Double& lower) const {
    const Int64 from = FBands[band].From;
    const Int64 to = FBands[band].To;
    const bool isAbove = position.Below > to || (position.Below == to && position.IsBetween);
    upper = isAbove ? Unbounded : static_cast<Double>(to) / FScale;
    lower = position.Below < from ? -Unbounded : static_cast<Double>(from) / FScale;
    return static_cast<Double>(FBands[band].Step) / FScale;
}

bool TEmbeddedSpreadTable::ToPosition(Double price, TPosition& position) const {
    if (!(std::fabs(price * FScale) < MaxUnits)) return false;
    position.IsBetween = !TryToUnits(price, FScale, UnitTolerance, position.Below);
    if (position.IsBetween) position.Below = static_cast<Int64>(std::floor(price * FScale));
    return true;
}

// The first band that ends above the price; the last one for a price at its end or beyond.
std::size_t TEmbeddedSpreadTable::BandUp(const TPosition& position) const {
    std::size_t band = 0;
    while (band + 1 < FBands.size() && FBands[band].To <= position.Below) ++band;
    return band;
}

// The first band that does not end below the price.
std::size_t TEmbeddedSpreadTable::BandDown(const TPosition& position) const {
    std::size_t band = 0;
    const Int64 reached = position.IsBetween ? position.Below + 1 : position.Below;
    while (band + 1 < FBands.size() && FBands[band].To < reached) ++band;
    return band;
}

Int64 TEmbeddedSpreadTable::MoveUp(TPosition position, Int64 steps) const {
    Int64 units = std::max(position.Below, FBands.front().From);
    if (position.Below < FBands.front().From) --steps; // the first step leads into the table
    while (steps > 0) {
        const std::size_t index = BandUp({units, false});
        const TBand& band = FBands[index];
        const Int64 ticks = FloorDivide(units - band.From, band.Step);
        const bool isLast = index + 1 == FBands.size();
        const Int64 end = isLast ? static_cast<Int64>(MaxUnits) : band.To;
        const Int64 room = CeilDivide(end - band.From, band.Step) - ticks;
        const Int64 taken = std::min(steps, room);
        units = std::min(band.From + (ticks + taken) * band.Step, end);
        if (isLast) break;
        steps -= taken;
    }
    return units;
}

Int64 TEmbeddedSpreadTable::MoveDown(TPosition position, Int64 steps) const {
    Int64 units = position.IsBetween ? position.Below + 1 : position.Below;
    const Int64 lowest = FBands.front().From;
    while (steps > 0 && units > lowest) {
        const TBand& band = FBands[BandDown({units, false})];
        const Int64 ticks = CeilDivide(units - band.From, band.Step);
        const Int64 taken = std::min(steps, ticks);
        units = band.From + (ticks - taken) * band.Step;
        steps -= taken;
    }
    return std::max(units, lowest);
}

} // namespace quorin
