#include "embedded/venue/PriceProcess.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Integer Thousandth = TPriceProcess::RatioUnit / 1000;
constexpr Integer Millionth = TPriceProcess::RatioUnit / 1'000'000;

constexpr Integer MinVolatility = 100 * Millionth;
constexpr Integer MaxVolatility = 300 * Millionth;
constexpr Integer OpeningGap = 4 * Thousandth; // at most, either way
constexpr Integer AnchorLimit = 60 * Thousandth;
constexpr Integer AnchorShare = 4; // the anchor's noise is so much smaller
constexpr Integer Pull = 512;      // the share of the way back to the anchor, per move
constexpr Integer RunPull = 64;
constexpr Integer RunLength = 115 * Thousandth;
constexpr Integer MovesPerJump = 20'000;
constexpr Integer MinJump = 3 * Thousandth;
constexpr Integer MaxJump = 12 * Thousandth;

Integer Shake(Integer width, TVenueRandom& random) {
    const Int64 noise = static_cast<Int64>(width) * random.Noise();
    return static_cast<Integer>(noise / TVenueRandom::NoiseWidth);
}

} // namespace

TPriceProcess::TPriceProcess(TVenueRandom& random)
    : FVolatility(random.Between(MinVolatility, MaxVolatility)) {
    FRatio += random.Between(-OpeningGap, OpeningGap);
    FAnchor = FRatio;
}

void TPriceProcess::Move(TVenueRandom& random) {
    if (!FRuns) {
        FAnchor += Shake(FVolatility / AnchorShare, random);
        if (random.OneIn(MovesPerJump)) {
            const Integer jump = random.Between(MinJump, MaxJump);
            const Integer signedJump = random.OneIn(2) ? jump : -jump;
            FAnchor += signedJump;
            FRatio += signedJump;
        }
        FAnchor = std::clamp(FAnchor, RatioUnit - AnchorLimit, RatioUnit + AnchorLimit);
    }
    FRatio += Shake(FVolatility, random) + (FAnchor - FRatio) / (FRuns ? RunPull : Pull);
}

void TPriceProcess::Run(bool isUp) {
    FRuns = true;
    FAnchor = isUp ? RatioUnit + RunLength : RatioUnit - RunLength;
}

} // namespace quorin
