#include "tests/endurance/DayForm.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Integer TradedPerExchange = 8; // so that the records of positions are soon all there

} // namespace

String TDay::AnyAccount() {
    const TEmbeddedAccountAdapter& accounts = Services.Accounts();
    const Integer index = Random.Pick(accounts.GetAccountCount() + 2); // nobody and none as well
    TCustomAccount* account = accounts.GetAccountByIndex(index);
    if (account != nullptr) return account->GetAccount();
    return Random.OneIn(2) ? String() : String(u"NOBODY");
}

String TDay::AnyExchange() {
    const TEmbeddedMarketAdapter& market = Services.Market();
    return market.GetExchangeCode(Random.Pick(market.GetExchangeCount()));
}

const TList<String>& TDay::TradedSymbols() {
    if (!Traded.IsEmpty()) return Traded;
    const TMarketUniverse& universe = Services.Market().Universe();
    for (const TMarketExchange* exchange : universe.Exchanges()) {
        const auto& records = *universe.FindRecords(exchange->Code, {});
        const Integer count = std::min(records.Count(), TradedPerExchange);
        for (Integer index = 0; index < count; ++index) Traded.Add(records[index]->GetSymbol());
    }
    return Traded;
}

String TDay::AnyCurrency() {
    static constexpr StringView currencies[] = {u"HKD", u"USD", u"CNY", u"cny", u"XXX", u""};
    return String(Random.OneOf(currencies));
}

const char* NameOf(TDayFormKind kind) {
    switch (kind) {
    case TDayFormKind::Watch: return "watch";
    case TDayFormKind::Underlyer: return "underlyer";
    case TDayFormKind::Position: return "position";
    case TDayFormKind::PositionView: return "position view";
    case TDayFormKind::AccountTree: return "account tree";
    case TDayFormKind::CashTree: return "cash tree";
    case TDayFormKind::Orders: return "orders";
    case TDayFormKind::Trades: return "trades";
    case TDayFormKind::Ticket: break;
    }
    return "ticket";
}

std::unique_ptr<TDayForm> MakeDayForm(TDayFormKind kind, TDay& day) {
    switch (kind) {
    case TDayFormKind::Watch:
    case TDayFormKind::Underlyer:
    case TDayFormKind::Trades: return MakeMarketDayForm(kind, day);
    case TDayFormKind::Position:
    case TDayFormKind::PositionView:
    case TDayFormKind::Orders: return MakePositionDayForm(kind, day);
    case TDayFormKind::AccountTree:
    case TDayFormKind::CashTree: return MakeTreeDayForm(kind, day);
    case TDayFormKind::Ticket: break;
    }
    return MakeTicketDayForm(day);
}

} // namespace quorin
