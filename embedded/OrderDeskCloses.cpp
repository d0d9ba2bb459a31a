// Orders that say of themselves that they close a position.

#include "embedded/AccountService.h"
#include "embedded/OrderDesk.h"
#include "embedded/PositionBooking.h"
#include "embedded/PositionService.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

bool IsBasicReason(TOrderReason reason) {
    switch (reason) {
    case TOrderReason::NoSide:
    case TOrderReason::UnknownAccount:
    case TOrderReason::UnknownSymbol:
    case TOrderReason::Quantity: return true;
    default: return false;
    }
}

} // namespace

bool TOrderDesk::SaysItCloses(const TOrderValues& values) {
    const String* flag = values.ExtraValues.Find(ClosePositionFlagKey);
    return flag != nullptr && *flag == ClosePositionFlagValue;
}

// A record of one side closes towards the other, whatever the order says; a signed one only by an
// order that goes the right way.
TOrderDesk::TClosable TOrderDesk::ClosableOf(StringView account, const TOrderValues& values) const {
    const TPositionFigures* figures = FPositions.FindFigures(account, values.Symbol);
    const Double held = HeldQuantity(account, values.Symbol);
    if (figures == nullptr || held == 0.0) return {};
    const Integer side = held > 0.0 ? OrderSide::Sell : OrderSide::Buy;
    if (figures->Side == TPositionSide::Net && side != values.BuySell) return {};
    return {side, std::fabs(held),
            WithoutDust(std::fabs(held) - WaitingClose(account, values.Symbol, side))};
}

Double TOrderDesk::WaitingClose(StringView account, StringView symbol, Integer side) const {
    Double waiting = 0.0;
    for (const Int64 number : FWorking) {
        const TDeskOrder& order = *FindOrder(number);
        if (order.Values.Account == account && order.Values.Symbol == symbol &&
            order.Values.BuySell == side) {
            waiting += order.Values.Quantity - order.Matched;
        }
    }
    return waiting;
}

// The account itself comes first. Of a master whose own position is what the order closes, its
// sub-accounts' positions are none of the order's business.
TList<String> TOrderDesk::ClosingAccounts(const TOrderValues& values) const {
    TList<String> codes;
    codes.Add(values.Account);
    const TCustomAccount* account = FAccounts.GetAccount(values.Account, /*Flag=*/false);
    if (account == nullptr || !account->IsAggregateAccount()) return codes;
    if (ClosableOf(values.Account, values).Held == values.Quantity) return codes;
    TAccountDictionary members;
    FAccounts.GetSubAccountList(values.Account, members);
    for (const auto& item : members) codes.Add(item.Key);
    return codes;
}

TOrderReason TOrderDesk::TakeClose(const TOrderValues& values) {
    if (IsBasicReason(Check(values))) return TakeOne(values);
    TOrderReason answer = TOrderReason::CrossesZero;
    Double rest = values.Quantity;
    for (const String& account : ClosingAccounts(values)) {
        const TClosable closable = ClosableOf(account, values);
        if (closable.Open <= 0.0) continue;
        TOrderValues part = values;
        part.Account = account;
        part.BuySell = closable.BuySell;
        part.Quantity = std::min(rest, closable.Open);
        const TOrderReason reason = TakeOne(part);
        if (answer != TOrderReason::None) answer = reason;
        rest = WithoutDust(rest - part.Quantity);
        if (rest <= 0.0) return answer;
    }
    TOrderValues remainder = values;
    remainder.Quantity = rest;
    Refuse(Enter(remainder), TOrderReason::CrossesZero);
    return answer;
}

} // namespace quorin
