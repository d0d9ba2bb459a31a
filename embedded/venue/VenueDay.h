#pragma once

#include "embedded/MarketService.h"

#include <vector>

namespace quorin {

// Where each exchange stands in its day. Tells the market adapter of each change.
class TVenueDay {
public:
    struct TExchange {
        const String* Code;
        TMarketSession Session = {}; // that runs now, or the gap
        bool IsOpen = false;         // trades
        bool IsQuoting = false;      // books move
        bool IsShown = false;        // there was a time when books moved
        bool IsChanged = false;      // by the last Advance
    };

    // The exchanges of the universe, in its order. The adapter must live longer, and its sessions
    // stay.
    explicit TVenueDay(TEmbeddedMarketAdapter& market);

    // To that time; it must not go back. True when anything has changed.
    bool Advance(Int64 time);

    const std::vector<TExchange>& Exchanges() const { return FExchanges; }
    // From the first opening to the last close, in nanoseconds; all day without sessions. False for
    // an exchange that never opens.
    bool OpenHours(std::size_t exchange, Int64& from, Int64& to) const;

private:
    void Enter(TExchange& exchange);

    TEmbeddedMarketAdapter& FMarket;
    std::vector<TExchange> FExchanges;
    Int64 FNextChange = 0;
};

} // namespace quorin
