// What an order must keep to be taken.

#include "embedded/AccountService.h"
#include "embedded/MarketService.h"
#include "embedded/OrderDesk.h"
#include "embedded/PositionBooking.h"
#include "embedded/PositionService.h"
#include "platform/rtl/Numbers.h"

#include <cmath>

namespace quorin {

namespace {

// False for NaN as well.
bool IsOrderQuantity(Double quantity) {
    return quantity > 0.0 && quantity <= MaxOrderQuantity;
}

// A lot of 0.0 is one that is not known.
bool IsInLots(Double quantity, const TEmbeddedMarketData& symbol) {
    if (symbol.LotSize() <= 0.0 || symbol.FieldNumber(Field::FractionalQuantity) == 1.0)
        return true;
    const Double lots = quantity / symbol.LotSize();
    return WithoutDust(lots - std::nearbyint(lots)) == 0.0;
}

// By the tick table, without one by the tick size; any price where neither is known.
bool IsOnStep(Double price, const TEmbeddedMarketData& symbol,
              const TEmbeddedMarketAdapter& market) {
    TEmbeddedSpreadTable table;
    const Double tick = symbol.FieldNumber(Field::TickSize);
    const TSpreadBand onlyBand{0.0, tick, tick};
    const bool isLoaded = table.Load(market.SpreadBands(symbol.SpreadCode())) ||
                          (tick > 0.0 && table.Load({&onlyBand, 1}));
    return !isLoaded || table.IsOnStep(price);
}

bool IsOrderPrice(Double price, const TEmbeddedMarketData& symbol,
                  const TEmbeddedMarketAdapter& market) {
    if (!std::isfinite(price)) return false;
    if (price <= 0.0 && !MayBeNegative(symbol.GetSymbol())) return false;
    return IsOnStep(price, symbol, market);
}

} // namespace

TOrderReason TOrderDesk::Check(const TOrderValues& values) const {
    if (values.BuySell != OrderSide::Buy && values.BuySell != OrderSide::Sell) {
        return TOrderReason::NoSide;
    }
    if (!FAccounts.IsAccountKnown(values.Account)) return TOrderReason::UnknownAccount;
    const TEmbeddedMarketData* symbol = FMarket.Universe().FindSymbol(values.Symbol);
    if (symbol == nullptr) return TOrderReason::UnknownSymbol;
    if (!IsOrderQuantity(values.Quantity)) return TOrderReason::Quantity;
    if (!IsInLots(values.Quantity, *symbol) && !IsWholeClose(values)) return TOrderReason::Lot;
    if (!values.IsMarket() && !IsOrderPrice(values.Price, *symbol, FMarket)) {
        return TOrderReason::Price;
    }
    return CrossesZero(values) ? TOrderReason::CrossesZero : TOrderReason::None;
}

bool TOrderDesk::IsWholeClose(const TOrderValues& values) const {
    const Double held = HeldQuantity(values.Account, values.Symbol);
    return values.IsBuy() ? values.Quantity == -held : values.Quantity == held;
}

bool TOrderDesk::CrossesZero(const TOrderValues& values) const {
    if (!FPositions.IsSided(values.Account, values.Symbol)) return false;
    const Double held = HeldQuantity(values.Account, values.Symbol);
    Double closable = values.IsBuy() ? -held : held; // less what other orders close
    if (closable <= 0.0) return false;               // it opens, or adds
    closable -= WaitingClose(values.Account, values.Symbol, values.BuySell);
    return WithoutDust(values.Quantity - closable) > 0.0;
}

Double TOrderDesk::HeldQuantity(StringView account, StringView symbol) const {
    const TPositionFigures* figures = FPositions.FindFigures(account, symbol);
    Double held = figures != nullptr ? SignedQuantity(*figures) : 0.0;
    for (const TTrade& trade : FTrades) {
        const TOrderValues& values = FindOrder(trade.OrderNumber)->Values;
        if (values.Account != account || values.Symbol != symbol) continue;
        held += values.IsBuy() ? trade.Trade.Quantity : -trade.Trade.Quantity;
    }
    return WithoutDust(held);
}

} // namespace quorin
