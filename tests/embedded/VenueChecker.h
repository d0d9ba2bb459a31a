#pragma once

#include "embedded/MarketService.h"
#include "embedded/SubscribeService.h"

#include <map>
#include <string>
#include <vector>

namespace quorin {

// Looks at the fields of live items alone, after each delivery, and tells what contradicts what.
class TVenueChecker {
public:
    struct TLevel {
        Double Price;
        Double Quantity;
        friend bool operator==(const TLevel&, const TLevel&) = default;
    };
    // A trade as its line tells it, with the side of the book that it was taken from.
    struct TTrade {
        Double Quantity;
        Double Price;
        StringView Side; // "A" or "B"
    };
    // What a symbol showed.
    struct TView {
        std::vector<TLevel> Bids;
        std::vector<TLevel> Asks;
        std::vector<std::string> Lines; // oldest first, all five
        Double Volume = 0.0;
        Double Open = 0.0;
        Double High = 0.0;
        Double Low = 0.0;
        bool HasLast = false;
        Double Last = 0.0;
    };

    TVenueChecker(TEmbeddedSubscribeAdapter& items, TEmbeddedMarketAdapter& market)
        : FItems(items), FMarket(market) {}

    // Begins to follow the symbol with what it shows now.
    void Follow(const String& symbol, Double lowLimit, Double highLimit);
    // Compares what the symbol shows now with what it showed at the last call. The new trades are
    // those of the result. Adds to Faults.
    std::vector<TTrade> Check(const String& symbol);

    const TView& View(const String& symbol) const { return FStates.at(symbol).View; }
    const std::vector<std::string>& Faults() const { return FFaults; }
    Int64 TradeCount() const { return FTradeCount; }

private:
    struct TState {
        TView View;
        Double LowLimit;
        Double HighLimit;
        Double TradeSum = 0.0;
    };

    TView Read(const String& symbol) const;
    void CheckBook(const String& symbol, const TState& state, const TView& now);
    void CheckSide(const String& symbol, const TState& state, const std::vector<TLevel>& side,
                   Double sign);
    bool IsOnTick(const String& symbol, Double price) const;
    std::vector<TTrade> NewTrades(const String& symbol, const TView& before, const TView& now);
    void Replay(const String& symbol, TView before, std::vector<TTrade>& trades, const TView& now);
    void CheckDay(const String& symbol, const TView& before, const std::vector<TTrade>& trades,
                  const TView& now);
    void Fault(const String& symbol, const std::string& what);

    TEmbeddedSubscribeAdapter& FItems;
    TEmbeddedMarketAdapter& FMarket;
    std::map<String, TState> FStates;
    std::vector<std::string> FFaults;
    Int64 FTradeCount = 0;
};

} // namespace quorin
