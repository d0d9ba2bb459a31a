#include "terminal/forms/TradeSides.h"

#include <algorithm>
#include <utility>

namespace quorin {

TTradeSides::~TTradeSides() {
    TMarketTradeSideDetector& detector = *TMarketTradeSideDetector::GetInstance();
    for (const TFollowed& followed : FFollowed) detector.RemoveSymbol(followed.State->Symbol());
}

void TTradeSides::Follow(StringView symbol) {
    TMarketTradeSideDetector& detector = *TMarketTradeSideDetector::GetInstance();
    detector.AddSymbol(symbol);
    FFollowed.push_back(TFollowed{detector.GetSymbolMarketTrade(symbol), 0});
}

Integer TTradeSides::TakeFresh(TFollowed& followed) {
    const Int64 taken = followed.State->TakenCount();
    const Int64 fresh = taken - std::exchange(followed.Taken, taken);
    return static_cast<Integer>(std::min<Int64>(fresh, followed.State->GetCount()));
}

} // namespace quorin
