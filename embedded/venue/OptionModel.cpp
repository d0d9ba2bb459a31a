#include "embedded/venue/OptionModel.h"

#include <algorithm>

namespace quorin {

namespace {

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
}

} // namespace quorin
