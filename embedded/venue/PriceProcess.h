#pragma once

#include "embedded/venue/VenuePrice.h"
#include "embedded/venue/VenueRandom.h"

namespace quorin {

// How the worth of one thing wanders through the day, as a ratio to its previous close: a noise
// that is pulled back to an anchor, which itself drifts, and jumps now and then. All symbols that
// stand for the same thing share one.
class TPriceProcess {
public:
    // The ratio 1.
    static constexpr Integer RatioUnit = 1'000'000'000;

    // Begins near the close, with a volatility of its own.
    explicit TPriceProcess(TVenueRandom& random);

    void Move(TVenueRandom& random);
    // From now on it goes a good tenth up, or down, and stays there.
    void Run(bool isUp);

    // What is worth `close` at the ratio 1.
    TVenuePrice Scale(TVenuePrice close) const {
        return close + MultiplyDivide(close, FRatio - RatioUnit, RatioUnit);
    }

private:
    Integer FRatio = RatioUnit;
    Integer FAnchor = RatioUnit;
    Integer FVolatility; // of one move, in billionths
    bool FRuns = false;
};

} // namespace quorin
