#include "embedded/OrderDesk.h"

#include "embedded/AccountService.h"
#include "embedded/MarketService.h"
#include "embedded/OrderKeys.h"
#include "embedded/PositionBooking.h"
#include "embedded/PositionService.h"

#include <algorithm>
#include <utility>

namespace quorin {

StringView OrderStateKey(TOrderState state) {
    switch (state) {
    case TOrderState::Working: return OrderKey::Res_OrderState_Working;
    case TOrderState::Filled: return OrderKey::Res_OrderState_Filled;
    case TOrderState::Cancelled: return OrderKey::Res_OrderState_Cancelled;
    case TOrderState::Refused: return OrderKey::Res_OrderState_Refused;
    }
    return {};
}

TOrderDesk::TOrderDesk(TEmbeddedSubscribeAdapter& items, TEmbeddedMarketAdapter& market,
                       TEmbeddedAccountAdapter& accounts, TEmbeddedPositionAdapter& positions)
    : FItems(items), FMarket(market), FAccounts(accounts), FPositions(positions), FQuotes(items) {
    FMarket.SetQuotesSeenEvent(MakeEvent<&TOrderDesk::MatchWorking>(this));
}

TOrderDesk::~TOrderDesk() {
    FMarket.SetQuotesSeenEvent(nullptr);
}

TOrderMarket& TOrderDesk::Market() {
    TOrderMarket* market = FMarket.OrderMarket();
    return market != nullptr ? *market : FQuotes;
}

Int64 TOrderDesk::TimeNanos() const {
    const TOrderMarket* market = FMarket.OrderMarket();
    return market != nullptr ? market->TimeNanos() : FQuotes.TimeNanos();
}

TOrderReason TOrderDesk::Take(const TOrderValues& values) {
    return SaysItCloses(values) ? TakeClose(values) : TakeOne(values);
}

void TOrderDesk::Refuse(TDeskOrder& order, TOrderReason reason) {
    order.State = TOrderState::Refused;
    order.Reason = reason;
    Note(TOrderAuditKind::Refusal, order, {order.Values.Price, order.Values.Quantity});
}

TOrderReason TOrderDesk::TakeOne(const TOrderValues& values) {
    const TOrderReason reason = Check(values);
    TDeskOrder& order = Enter(values);
    if (reason != TOrderReason::None) {
        Refuse(order, reason);
        return reason;
    }
    Note(TOrderAuditKind::Order, order, {values.IsMarket() ? 0.0 : values.Price, values.Quantity});
    FWorking.Add(order.Number);
    FItems.GetSubItem(values.Symbol, LiveDataType, /*Flag=*/true); // what is held has to be valued
    FPositions.FollowPrice(values.Account, values.Symbol);
    Pend(order.Values, values.Quantity);
    Match(order);
    return TOrderReason::None;
}

void TOrderDesk::RefuseUnknown() {
    Note({.Kind = TOrderAuditKind::Refusal, .Reason = TOrderReason::NotAnOrder}, {});
}

TDeskOrder& TOrderDesk::Enter(const TOrderValues& values) {
    TDeskOrder& order = FOrders.emplace_back();
    order.Number = static_cast<Int64>(FOrders.size());
    order.Values = values;
    order.TimeNanos = TimeNanos();
    return order;
}

bool TOrderDesk::CancelOrder(Int64 number) {
    if (FindOrder(number) == nullptr) return false;
    TDeskOrder& order = At(number);
    const bool isOver = order.State != TOrderState::Working;
    if (isOver || order.Values.Quantity <= order.Matched) return false;
    GiveUp(order, TOrderReason::ByUser);
    DropIdle();
    return true;
}

TList<const TDeskOrder*> TOrderDesk::WorkingOrders() const {
    TList<const TDeskOrder*> orders;
    for (const Int64 number : FWorking) orders.Add(FindOrder(number));
    return orders;
}

const TDeskOrder* TOrderDesk::FindOrder(Int64 number) const {
    const bool isKnown = number >= 1 && number <= static_cast<Int64>(FOrders.size());
    return isKnown ? &FOrders[static_cast<std::size_t>(number - 1)] : nullptr;
}

void TOrderDesk::Match(TDeskOrder& order) {
    const Double open = order.Values.Quantity - order.Matched;
    if (open <= 0.0) return;
    TList<TOrderTrade> trades;
    Market().Take({order.Values.Symbol, order.Values.IsBuy(), open, order.Values.IsMarket(),
                   order.Values.Price},
                  trades);
    for (const TOrderTrade& trade : trades) {
        order.Matched += trade.Quantity;
        FTrades.push_back({order.Number, trade, TimeNanos()});
    }
    if (WithoutDust(order.Values.Quantity - order.Matched) == 0.0) {
        order.Matched = order.Values.Quantity;
    }
}

void TOrderDesk::MatchWorking() {
    for (const Int64 number : FWorking) {
        TDeskOrder& order = At(number);
        if (!order.Values.IsMarket()) Match(order);
    }
}

void TOrderDesk::Book() {
    if (FMarket.OrderMarket() == nullptr) MatchWorking();
    for (const TTrade& trade : std::exchange(FTrades, {})) BookTrade(trade);
    for (const Int64 number : FWorking) {
        TDeskOrder& order = At(number);
        const bool isOver = order.State != TOrderState::Working || !order.Values.IsMarket();
        if (!isOver) GiveUp(order, TOrderReason::NothingOffered);
    }
    DropIdle();
}

void TOrderDesk::BookTrade(const TTrade& trade) {
    TDeskOrder& order = At(trade.OrderNumber);
    order.Filled += trade.Trade.Quantity;
    order.FilledAmount += trade.Trade.Quantity * trade.Trade.Price;
    if (WithoutDust(order.Values.Quantity - order.Filled) == 0.0) {
        order.Filled = order.Values.Quantity;
        order.State = TOrderState::Filled;
    }
    FPositions.BookTrade(order.Values.Account, order.Values.Symbol,
                         {order.Values.IsBuy(), trade.Trade.Quantity, trade.Trade.Price});
    Pend(order.Values, -trade.Trade.Quantity);
    Note(TOrderAuditKind::Fill, order, trade.Trade);
}

void TOrderDesk::GiveUp(TDeskOrder& order, TOrderReason reason) {
    const Double rest = order.Values.Quantity - order.Matched;
    order.State = TOrderState::Cancelled;
    order.Reason = reason;
    Pend(order.Values, -rest);
    Note(TOrderAuditKind::Cancel, order,
         {order.Values.IsMarket() ? 0.0 : order.Values.Price, rest});
}

void TOrderDesk::DropIdle() {
    FWorking.RemoveAll(
        [this](Int64 number) { return FindOrder(number)->State != TOrderState::Working; });
}

void TOrderDesk::Pend(const TOrderValues& values, Double quantity) {
    FPositions.Pend(values.Account, values.Symbol, values.IsBuy(), quantity);
}

void TOrderDesk::Note(TOrderAuditEntry entry, StringView text) {
    entry.TimeNanos = TimeNanos();
    entry.Text = text;
    FAudit.Add(std::move(entry));
    ++FChangeCount;
}

void TOrderDesk::Note(TOrderAuditKind kind, const TDeskOrder& order, const TOrderTrade& trade) {
    Note({.Kind = kind,
          .Reason = order.Reason,
          .OrderNumber = order.Number,
          .Account = order.Values.Account,
          .Symbol = order.Values.Symbol,
          .BuySell = order.Values.BuySell,
          .Quantity = trade.Quantity,
          .Price = trade.Price},
         {});
}

void TOrderDesk::Deliver() {
    if (FToldChangeCount == FChangeCount) return;
    FToldChangeCount = FChangeCount;
    FCallbacks.Deliver(FDeliveries.Begin(), Pointer(), Pointer());
}

} // namespace quorin
