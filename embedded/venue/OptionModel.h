#pragma once

#include "embedded/venue/VenuePrice.h"

namespace quorin {

// A simple price of an option: what it would bring now, and a time value that is highest at the
// strike and falls with the distance from it. A call rises and a put falls with the underlyer, at
// the strike by half of what that moves; a call and a put of one time value keep parity.
class TOptionModel {
public:
    // `months` to the expiry, at least 1. The time value is such that the option is worth `close`
    // when the underlyer is at `underlyerClose`, which is left to the model for a close of 0 and
    // for one below what the option would bring.
    TOptionModel(bool isCall, TVenuePrice strike, Integer months, TVenuePrice underlyerClose,
                 TVenuePrice close);

    // Not below Intrinsic of the same price.
    TVenuePrice Value(TVenuePrice underlyer) const;
    TVenuePrice Intrinsic(TVenuePrice underlyer) const;

private:
    // How far the option is in the money; negative when it is out of it.
    TVenuePrice Depth(TVenuePrice underlyer) const {
        return FIsCall ? underlyer - FStrike : FStrike - underlyer;
    }

    TVenuePrice FStrike;
    Double FTimeValue; // at the strike
    bool FIsCall;
};

} // namespace quorin
