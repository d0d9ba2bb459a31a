#include "embedded/venue/OptionModel.h"

#include <algorithm>

namespace quorin {

namespace {

<<<<<<< HEAD
constexpr Int64 DistanceUnit = 1024; // a distance of one width
constexpr Int64 MaxDistance = 16 * DistanceUnit;
constexpr Int64 FallUnit = DistanceUnit * DistanceUnit;
constexpr Int64 WidthDivisor = 20;  // a twentieth of the underlyer for one month
constexpr Int64 RootScale = 100;    // square roots with two decimals
constexpr Int64 TimeValueShare = 5; // fifths of the width, at the strike
constexpr Int64 UsualTimeValue = 3;
constexpr Int64 MaxTimeValue = 5; // beyond this a call could fall with a rising underlyer

Int64 SquareRoot(Int64 value) {
    Int64 root = 0;
    while ((root + 1) * (root + 1) <= value) ++root;
    return root;
}

} // namespace

TOptionModel::TOptionModel(bool isCall, TVenuePrice strike, Integer months,
                           TVenuePrice underlyerClose, TVenuePrice close)
    : FStrike(strike), FIsCall(isCall) {
    const Int64 root = SquareRoot(months * RootScale * RootScale);
    FWidth = std::max<Int64>(underlyerClose / WidthDivisor / RootScale * root, 1);
    FTimeValue = FWidth / TimeValueShare * UsualTimeValue;
    if (close == 0) return;
    const TVenuePrice atClose = std::max<Int64>(close - Intrinsic(underlyerClose), 0);
    const TVenuePrice highest = FWidth / TimeValueShare * MaxTimeValue;
    const Int64 fall = Fall(underlyerClose);
    FTimeValue =
        atClose > highest ? highest : std::min(MultiplyDivide(atClose, fall, FallUnit), highest);
}

TVenuePrice TOptionModel::Intrinsic(TVenuePrice underlyer) const {
    return std::max<Int64>(FIsCall ? underlyer - FStrike : FStrike - underlyer, 0);
}

TVenuePrice TOptionModel::TimeValue(TVenuePrice underlyer) const {
    return MultiplyDivide(FTimeValue, FallUnit, Fall(underlyer));
}

// By how much the time value is smaller than at the strike: 1 there, 2 one width away, 5 two
// widths.
Int64 TOptionModel::Fall(TVenuePrice underlyer) const {
    const TVenuePrice away = underlyer < FStrike ? FStrike - underlyer : underlyer - FStrike;
    const Int64 distance = away / FWidth >= MaxDistance / DistanceUnit
                               ? MaxDistance
                               : MultiplyDivide(away, DistanceUnit, FWidth);
    return FallUnit + distance * distance;
=======
// Of the underlyer, at the strike and one month before the expiry.
constexpr Double UsualTimeValue = 0.03;

} // namespace

// The value is the upper branch of a hyperbola between zero and the depth in the money:
// value * (value - depth) is the square of the time value at the strike.
TOptionModel::TOptionModel(bool isCall, TVenuePrice strike, Integer months,
                           TVenuePrice underlyerClose, TVenuePrice close)
    : FStrike(strike), FIsCall(isCall) {
    const auto depth = static_cast<Double>(Depth(underlyerClose));
    const auto value = static_cast<Double>(close);
    FTimeValue = value > 0.0 && value >= depth
                     ? std::sqrt(value * (value - depth))
                     : UsualTimeValue * static_cast<Double>(underlyerClose) *
                           std::sqrt(static_cast<Double>(months));
}

TVenuePrice TOptionModel::Value(TVenuePrice underlyer) const {
    const auto depth = static_cast<Double>(Depth(underlyer));
    const Double root = std::sqrt(depth * depth + 4.0 * FTimeValue * FTimeValue);
    return std::max(RoundToInt64((depth + root) / 2.0), Intrinsic(underlyer));
}

TVenuePrice TOptionModel::Intrinsic(TVenuePrice underlyer) const {
    return std::max<TVenuePrice>(Depth(underlyer), 0);
>>>>>>> wt-venue
}

} // namespace quorin
