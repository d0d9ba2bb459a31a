#include "tests/embedded/VenueChecker.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace quorin {

namespace {

constexpr Double Near = 1e-7;

struct TNumbers {
    Integer Price;
    Integer Quantity;
};
constexpr TNumbers BidNumbers[] = {{1, 16}, {81, 51}, {82, 52}, {83, 53}, {84, 54}};
constexpr TNumbers AskNumbers[] = {{2, 19}, {91, 61}, {92, 62}, {93, 63}, {94, 64}};

bool IsNear(Double left, Double right) {
    return std::fabs(left - right) <= Near;
}

} // namespace

void TVenueChecker::Follow(const String& symbol, Double lowLimit, Double highLimit) {
    FStates[symbol] = {Read(symbol), lowLimit, highLimit};
}

TVenueChecker::TView TVenueChecker::Read(const String& symbol) const {
    const TEmbeddedSubItem& item = FItems.Item(symbol);
    TView view;
    const auto readSide = [&](const TNumbers(&numbers)[5], std::vector<TLevel>& side) {
        for (const TNumbers& number : numbers) {
            if (item.HasField(number.Price) != item.HasField(number.Quantity)) {
                side.push_back({-1.0, -1.0}); // half a level is a fault of any check
            } else if (item.HasField(number.Price)) {
                side.push_back(
                    {item.GetFieldDouble(number.Price), item.GetFieldDouble(number.Quantity)});
            }
        }
    };
    readSide(BidNumbers, view.Bids);
    readSide(AskNumbers, view.Asks);
    for (Integer field = 110; field <= 114; ++field) {
        view.Lines.push_back(ToUtf8(item.FieldText(field)));
    }
    view.Volume = item.GetFieldDouble(17);
    view.Open = item.GetFieldDouble(133);
    view.High = item.GetFieldDouble(32);
    view.Low = item.GetFieldDouble(37);
    view.HasLast = item.HasField(3);
    view.Last = item.GetFieldDouble(3);
    return view;
}

std::vector<TVenueChecker::TTrade> TVenueChecker::Check(const String& symbol) {
    TState& state = FStates.at(symbol);
    const TView now = Read(symbol);
    CheckBook(symbol, state, now);
    std::vector<TTrade> trades = NewTrades(symbol, state.View, now);
    if (!trades.empty()) {
        Replay(symbol, state.View, trades, now);
        CheckDay(symbol, state.View, trades, now);
        for (const TTrade& trade : trades) state.TradeSum += trade.Quantity;
        if (!IsNear(state.TradeSum, now.Volume)) Fault(symbol, "volume is not the sum of trades");
    } else if (now.Last != state.View.Last || now.High != state.View.High ||
               now.Low != state.View.Low || now.Open != state.View.Open ||
               now.Volume != state.View.Volume) {
        Fault(symbol, "a price of the day moves without a trade");
    }
    FTradeCount += static_cast<Int64>(trades.size());
    state.View = now;
    return trades;
}

void TVenueChecker::CheckBook(const String& symbol, const TState& state, const TView& now) {
    CheckSide(symbol, state, now.Bids, -1.0);
    CheckSide(symbol, state, now.Asks, 1.0);
    if (!now.Bids.empty() && !now.Asks.empty() && now.Bids[0].Price >= now.Asks[0].Price) {
        Fault(symbol, "the bid is not below the ask");
    }
    const bool isStopped = FItems.Item(symbol).FieldText(143) == u"HA";
    if (isStopped && !(now.Bids.empty() && now.Asks.empty())) Fault(symbol, "stopped and quoted");
}

void TVenueChecker::CheckSide(const String& symbol, const TState& state,
                              const std::vector<TLevel>& side, Double sign) {
    const Double lot = FItems.Item(symbol).GetFieldDouble(24);
    for (std::size_t level = 0; level < side.size(); ++level) {
        const auto [price, quantity] = side[level];
        const Double lots = quantity / lot;
        if (level > 0 && (price - side[level - 1].Price) * sign <= 0.0) {
            Fault(symbol, "levels are out of order");
        }
        if (quantity <= 0.0 || lots != std::floor(lots)) Fault(symbol, "not whole lots");
        if (price < state.LowLimit - Near || price > state.HighLimit + Near) {
            Fault(symbol, "beyond the limits");
        }
        if (!IsOnTick(symbol, price)) Fault(symbol, "off the ticks: " + std::to_string(price));
    }
}

bool TVenueChecker::IsOnTick(const String& symbol, Double price) const {
    const TEmbeddedSubItem& item = FItems.Item(symbol);
    if (TCustomSpreadTable* table = FMarket.FindSpreadTable(item.FieldText(73))) {
        return table->MovePrice(table->MovePrice(price, 1), -1) == price;
    }
    const Double ticks = price / ToDoubleOr(item.FieldText(507), 0.0);
    return IsNear(ticks, std::nearbyint(ticks));
}

// The newest lines that were not there before: so many that the older ones still agree and that
// their quantities are what the volume has grown by.
std::vector<TVenueChecker::TTrade> TVenueChecker::NewTrades(const String& symbol,
                                                            const TView& before, const TView& now) {
    const std::size_t lines = now.Lines.size();
    std::vector<TTrade> trades;
    Double sum = 0.0;
    for (std::size_t count = 0; count <= lines; ++count) {
        if (count > 0) {
            std::istringstream line(now.Lines[lines - count]);
            std::string time;
            TTrade trade{0.0, 0.0, {}};
            line >> time >> trade.Quantity >> trade.Price;
            if (!line || time.size() != 8) break;
            trades.insert(trades.begin(), trade);
            sum += trade.Quantity;
        }
        const auto known = static_cast<std::ptrdiff_t>(lines - count);
        const bool agrees = std::equal(now.Lines.begin(), now.Lines.begin() + known,
                                       before.Lines.begin() + static_cast<std::ptrdiff_t>(count));
        if (agrees && IsNear(now.Volume - before.Volume, sum)) return trades;
    }
    Fault(symbol, "volume and trade lines do not agree");
    return {};
}

// Takes the trades out of the book of before: each at a best price, and what remains is the book
// of now.
void TVenueChecker::Replay(const String& symbol, TView before, std::vector<TTrade>& trades,
                           const TView& now) {
    for (TTrade& trade : trades) {
        const bool isAsk = !before.Asks.empty() && before.Asks[0].Price == trade.Price;
        const bool isBid = !before.Bids.empty() && before.Bids[0].Price == trade.Price;
        if (!isAsk && !isBid) {
            Fault(symbol, "a trade at no quoted price");
            return;
        }
        trade.Side = isAsk ? u"A" : u"B";
        std::vector<TLevel>& side = isAsk ? before.Asks : before.Bids;
        side[0].Quantity -= trade.Quantity;
        if (side[0].Quantity < -Near) Fault(symbol, "a trade of more than was quoted");
        if (IsNear(side[0].Quantity, 0.0)) side.erase(side.begin());
    }
    if (before.Bids != now.Bids || before.Asks != now.Asks) {
        Fault(symbol, "the book is not what the trades have left");
    }
}

void TVenueChecker::CheckDay(const String& symbol, const TView& before,
                             const std::vector<TTrade>& trades, const TView& now) {
    Double high = before.HasLast ? before.High : trades[0].Price;
    Double low = before.HasLast ? before.Low : trades[0].Price;
    for (const TTrade& trade : trades) {
        high = std::max(high, trade.Price);
        low = std::min(low, trade.Price);
    }
    const Double open = before.HasLast ? before.Open : trades[0].Price;
    if (now.High != high || now.Low != low) Fault(symbol, "high and low are not of the trades");
    if (now.Open != open) Fault(symbol, "the open is not the first trade");
    if (now.Last != trades.back().Price) Fault(symbol, "the last price is not the newest trade");
    if (FMarket.GetMarketStatus(FItems.Item(symbol).FieldText(20)) != MarketOpen) {
        Fault(symbol, "a trade while the exchange is not open");
    }
    if (FItems.Item(symbol).FieldText(143) == u"HA") Fault(symbol, "a trade of a stopped symbol");
}

void TVenueChecker::Fault(const String& symbol, const std::string& what) {
    FFaults.push_back(ToUtf8(symbol) + ": " + what);
}

} // namespace quorin
