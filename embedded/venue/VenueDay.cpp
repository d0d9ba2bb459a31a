#include "embedded/venue/VenueDay.h"

#include <algorithm>
#include <limits>

namespace quorin {

namespace {

// Orders come in, nothing trades yet.
constexpr StringView OrderInputStates[] = {u"PO", u"OI", u"OA"};

bool TakesOrders(const TMarketSession& session) {
    return session.Status == MarketOpen ||
           std::find(std::begin(OrderInputStates), std::end(OrderInputStates),
                     StringView(session.State)) != std::end(OrderInputStates);
}

} // namespace

TVenueDay::TVenueDay(TEmbeddedMarketAdapter& market) : FMarket(market) {
    for (const TMarketExchange* exchange : market.Universe().Exchanges()) {
        FExchanges.push_back(TExchange{&exchange->Code});
    }
}

bool TVenueDay::Advance(Int64 time) {
    for (TExchange& exchange : FExchanges) exchange.IsChanged = false;
    if (time < FNextChange) return false;
    FNextChange = std::numeric_limits<Int64>::max();
    bool isChanged = false;
    for (TExchange& exchange : FExchanges) {
        if (time >= exchange.Session.To) {
            TMarketSession next = FMarket.Sessions().At(*exchange.Code, time);
            if (time >= next.To) continue; // the day is over: what ran last goes on
            exchange.Session = std::move(next);
            Enter(exchange);
            isChanged = true;
        }
        FNextChange = std::min(FNextChange, exchange.Session.To);
    }
    return isChanged;
}

void TVenueDay::Enter(TExchange& exchange) {
    const TMarketSession& session = exchange.Session;
    exchange.IsOpen = session.Status == MarketOpen;
    exchange.IsQuoting = TakesOrders(session);
    exchange.IsShown = exchange.IsShown || exchange.IsQuoting;
    exchange.IsChanged = true;
    FMarket.SetMarketState(*exchange.Code, session.State, session.Status);
}

bool TVenueDay::OpenHours(std::size_t exchange, Int64& from, Int64& to) const {
    const String& code = *FExchanges[exchange].Code;
    const TList<TMarketSession>* sessions = FMarket.Sessions().Find(code);
    if (sessions == nullptr) {
        const TMarketSession day = FMarket.Sessions().At(code, 0);
        from = day.From;
        to = day.To;
        return day.Status == MarketOpen;
    }
    bool isFound = false;
    for (const TMarketSession& session : *sessions) {
        if (session.Status != MarketOpen) continue;
        if (!isFound) from = session.From;
        to = session.To;
        isFound = true;
    }
    return isFound;
}

} // namespace quorin
