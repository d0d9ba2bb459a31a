#include "embedded/venue/OrderBook.h"

#include <algorithm>

namespace quorin {

Integer TBookSide::Take(Integer lots) {
    if (IsEmpty()) return 0;
    const Integer taken = std::min(lots, FLevels[0].Lots);
    FLevels[0].Lots -= taken;
    if (FLevels[0].Lots == 0) Remove(0);
    return taken;
}

void TBookSide::CancelBetterThan(TTick tick) {
    while (!IsEmpty() && IsBetter(Best().Tick, tick)) Remove(0);
}

bool TBookSide::Insert(TTick tick, Integer lots) {
    Integer level = 0;
    while (level < FCount && IsBetter(FLevels[At(level)].Tick, tick)) ++level;
    if (level == Depth || (level < FCount && FLevels[At(level)].Tick == tick)) return false;
    if (FCount < Depth) ++FCount;
    const auto place = FLevels.begin() + level;
    std::move_backward(place, FLevels.begin() + FCount - 1, FLevels.begin() + FCount);
    *place = {tick, lots};
    return true;
}

void TBookSide::Remove(Integer level) {
    std::move(FLevels.begin() + level + 1, FLevels.begin() + FCount, FLevels.begin() + level);
    --FCount;
}

} // namespace quorin
