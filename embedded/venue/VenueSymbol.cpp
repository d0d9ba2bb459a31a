#include "embedded/venue/VenueSymbol.h"

#include <algorithm>

namespace quorin {

void TTradeTape::Print(const TVenueTrade& trade) {
    if (FCount == 0) FOpen = FHigh = FLow = trade.Tick;
    FHigh = std::max(FHigh, trade.Tick);
    FLow = std::min(FLow, trade.Tick);
    FVolumeLots += trade.Lots;
    FRing[FCount % Shown] = trade;
    ++FCount;
}

} // namespace quorin
