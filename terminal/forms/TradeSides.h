#pragma once

#include "viewdata/market/MarketTradeSideDetector.h"

#include <vector>

namespace quorin {

// Follows any number of symbols with the trade side detector and hands over each trade once, in
// the order in which they were taken in. Must be gone before the detector is released.
class TTradeSides : public TObject {
    QUORIN_CLASS(TTradeSides, TObject)

    TTradeSides() = default;
    ~TTradeSides() override;

    // Each symbol once.
    void Follow(StringView symbol);

    // Calls `take(symbol, trade)` for every trade taken in since the last call, symbol by symbol in
    // the order of Follow, the oldest first. To be called after each delivery: only the newest five
    // of a symbol can still be read.
    template <class Take>
    void TakeNew(Take take) {
        for (TFollowed& followed : FFollowed) {
            const Integer fresh = TakeFresh(followed);
            const Integer count = followed.State->GetCount();
            for (Integer index = count - fresh; index < count; ++index) {
                take(followed.State->Symbol(), *followed.State->GetTrade(index));
            }
        }
    }

private:
    struct TFollowed {
        TSymbolMarketTrade* State; // the detector's
        Int64 Taken;
    };
    static Integer TakeFresh(TFollowed& followed);

    std::vector<TFollowed> FFollowed;
};

} // namespace quorin
