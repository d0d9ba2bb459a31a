#pragma once

#include "embedded/TimeText.h"
#include "embedded/venue/Venue.h"
#include "platform/rtl/Numbers.h"
#include "tests/support/RecordingHost.h"

#include "embedded/EmbeddedServices.h"

#include <gtest/gtest.h>

#include <memory>

namespace quorin {

inline constexpr Int64 VenueMinute = 60 * NanosPerSecond;

inline Int64 TimeOf(Int64 hours, Int64 minutes) {
    return (hours * 60 + minutes) * VenueMinute;
}

// The hours of the exchanges of TVenueMarket: SEHK and HKFE with a pre-opening and a lunch break,
// SHFE and SSE without a pre-opening.
inline TMarketSessions VenueSessions() {
    TMarketSessions sessions;
    bool added = true;
    for (const StringView exchange : {u"SEHK", u"HKFE"}) {
        added &= sessions.Add(exchange, {TimeOf(9, 0), TimeOf(9, 30), u"PO", 0});
        added &= sessions.Add(exchange, {TimeOf(9, 30), TimeOf(12, 0), u"CT", MarketOpen});
        added &= sessions.Add(exchange, {TimeOf(12, 0), TimeOf(13, 0), u"LB", 0});
        added &= sessions.Add(exchange, {TimeOf(13, 0), TimeOf(16, 0), u"CT", MarketOpen});
        added &= sessions.Add(exchange, {TimeOf(16, 0), TimeOf(16, 10), u"CA", 0});
    }
    for (const StringView exchange : {u"SHFE", u"SSE"}) {
        added &= sessions.Add(exchange, {TimeOf(9, 30), TimeOf(11, 30), u"CT", MarketOpen});
        added &= sessions.Add(exchange, {TimeOf(13, 0), TimeOf(15, 0), u"CT", MarketOpen});
    }
    EXPECT_TRUE(added);
    return sessions;
}

// All services with a small universe of every kind: shares on several tick bands, with lots and
// with price limits, futures on a hidden index, a calendar spread, options on a future and on a
// share, metals. The end checks that nobody is registered any more.
class TVenueMarket {
public:
    TVenueMarket();
    ~TVenueMarket();

    TEmbeddedServices& Services() { return FServices; }
    TEmbeddedSubscribeAdapter& Items() { return FServices.Items(); }
    TEmbeddedMarketAdapter& Market() { return FServices.Market(); }
    const std::vector<String>& Symbols() const { return FSymbols; }

    std::unique_ptr<TVenue> Open(const TVenueOptions& options) {
        return std::make_unique<TVenue>(Items(), Market(), options);
    }
    // Asks for every symbol, as a screen does.
    void AskForAll() {
        for (const String& symbol : FSymbols) {
            Items().GetSubItem(symbol, LiveDataType, /*Flag=*/true);
        }
        Items().Deliver();
    }
    // Every field of a symbol, one after the other.
    std::string Fields(StringView symbol);
    // The same of all symbols.
    std::string Everything() {
        std::string all;
        for (const String& symbol : FSymbols) all += Fields(symbol) + "\n";
        return all;
    }

private:
    void Add(const TSymbolRecord& record);
    void AddShares();
    void AddDerivatives();

    TRecordingHost FHost;
    TEmbeddedServices FServices;
    std::vector<String> FSymbols;
};

} // namespace quorin
