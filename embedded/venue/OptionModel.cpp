#include "embedded/venue/OptionModel.h"

#include <algorithm>

namespace quorin {

namespace {

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
}

} // namespace quorin
