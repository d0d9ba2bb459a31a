#include "embedded/AccountLedger.h"

#include "embedded/AccountService.h"
#include "embedded/CurrencyService.h"
#include "embedded/MarginFeed.h"
#include "embedded/MarketUniverse.h"
#include "embedded/OrderDesk.h"
#include "embedded/PositionService.h"
#include "embedded/PositionValuation.h"
#include "embedded/ProductService.h"

#include <cmath>

namespace quorin {

namespace {

bool IsContract(Integer productType) {
    return productType == ProductType::Futures || productType == ProductType::Options;
}

} // namespace

void TAccountLedger::Settle() {
    for (TEmbeddedAccount* account : FParts.Accounts.TakeFedBalances()) {
        FParts.Accounts.SettleBalances(*account);
        FParts.Positions.EachPosition(account->GetAccount(), [&](TEmbeddedPositionData& position) {
            const TBalanceMoves now = Worth(position, *account);
            FEntries.Obtain(&position) = {now, now};
        });
    }
    for (const TEmbeddedPositionData* position : FParts.Positions.TakeFedPositions()) {
        const TEmbeddedAccount* account = FParts.Accounts.FindAccount(position->GetAccount());
        if (account == nullptr) continue;
        const TBalanceMoves now = Worth(*position, *account);
        TEntry& entry = FEntries.Obtain(position);
        entry.Start += now;
        entry.Start -= entry.Last;
        entry.Last = now;
    }
}

void TAccountLedger::Revalue() {
    Settle();
    FTouched.Clear();
    FParts.Positions.EachTouchedAccount([this](StringView account) { Touch(account); });
    if (FTouched.IsEmpty()) return;
    for (const auto& item : FTouched) {
        AddPositions(*FParts.Accounts.FindAccount(item.Key), item.Value);
    }
    AddOrders();
    for (const auto& item : FTouched) {
        Write(*FParts.Accounts.FindAccount(item.Key), item.Value);
    }
}

void TAccountLedger::Touch(StringView account) {
    if (FParts.Accounts.FindAccount(account) != nullptr) FTouched.Obtain(account);
}

void TAccountLedger::AddPositions(const TEmbeddedAccount& account, TByCurrency& moves) {
    FParts.Positions.EachPosition(account.GetAccount(), [&](TEmbeddedPositionData& position) {
        TEntry& entry = FEntries.Obtain(&position);
        entry.Last = Worth(position, account);
        TBalanceMoves& sum = moves.Obtain(CurrencyOf(position.GetSymbol()));
        sum += entry.Last;
        sum -= entry.Start;
    });
}

void TAccountLedger::AddOrders() {
    for (const TDeskOrder* order : FParts.Desk.WorkingOrders()) {
        const TOrderValues& values = order->Values;
        TByCurrency* moves = FTouched.Find(values.Account);
        if (moves == nullptr || values.IsMarket()) continue;
        const Double size = UnitSize(
            {.ContractSize = FParts.Items.Item(values.Symbol).GetFieldDouble(Field::ContractSize)});
        const Double amount = order->Remaining() * values.Price * size;
        TBalanceMoves& sum = moves->Obtain(CurrencyOf(values.Symbol));
        (values.IsBuy() ? sum.PendingBuy : sum.PendingSell) += amount;
    }
}

// Without a currency of its own a product is traded in the base currency.
StringView TAccountLedger::CurrencyOf(StringView symbol) const {
    const TEmbeddedMarketData* record = FParts.Items.Item(symbol).Record();
    const bool isKnown = record != nullptr && !record->GetCurrency().empty();
    return isKnown ? StringView(record->GetCurrency())
                   : StringView(FParts.Currencies.GetBaseCurrency());
}

TBalanceMoves TAccountLedger::Worth(const TEmbeddedPositionData& position,
                                    const TEmbeddedAccount& account) {
    const TPositionFigures& figures = position.Figures();
    const TProductMarks marks = MarksOf(FParts.Items.Item(position.GetSymbol()));
    const Double size = UnitSize(marks);
    const Double price = figures.FollowsPrice ? figures.Nominal : NominalPrice(marks);
    TBalanceMoves worth;
    worth.Bought = figures.TodayBuyAmount * size;
    worth.Sold = figures.TodaySellAmount * size;
    worth.Cash = worth.Sold - worth.Bought;
    worth.Value = (SignedQuantity(figures) - figures.ShortQuantity) * price * size;
    worth.Profit = figures.InitPL + figures.ExePL;
    worth.Realised = figures.RealPL;
    if (IsContract(figures.ProdType)) {
        worth.ContractProfit = worth.Profit;
        worth.Margin = std::fabs(figures.Quantity) *
                       FParts.Margins.Requirement(FParts.Items.Item(position.GetSymbol()).Record());
    } else {
        worth.ShareCash = worth.Cash;
        worth.Collateral = worth.Value * LoanShare(position, account);
    }
    return worth;
}

// Only a margin account may borrow on its shares.
Double TAccountLedger::LoanShare(const TEmbeddedPositionData& position,
                                 const TEmbeddedAccount& account) const {
    if (account.GetMarginType() != MarginType::Margin) return 0.0;
    const TCustomProductData* product =
        FParts.Products.GetProductData(position.GetSymbol(), position.GetAccount());
    return product != nullptr && product->HasMarginRatio() ? product->GetMarginRatio() : 0.0;
}

void TAccountLedger::Write(TEmbeddedAccount& account, const TByCurrency& moves) {
    const bool isMulti = FParts.Currencies.IsMultiCurrency();
    TBalanceMoves total;
    for (const auto& item : moves) {
        TBalanceMoves own = item.Value;
        own.Loan = LoanMove(FParts.Accounts.FedCash(account, item.Key), own);
        if (isMulti) FParts.Accounts.MoveBalance(account, item.Key, own);
        total.Add(own, FParts.Currencies.GetCurrencyRatio(item.Key));
    }
    if (!isMulti) total.Loan = LoanMove(FParts.Accounts.FedCash(account, {}), total);
    FParts.Accounts.MoveBalance(account, {}, total);
}

} // namespace quorin
