#include "terminal/forms/PartialTotals.h"

#include "terminal/forms/AccountColumns.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/position/PositionRecipes.h"
#include "viewdata/services/PositionAdapter.h"

namespace quorin {

namespace {

namespace A = AccountAttribute;

constexpr Integer MostNamed = 5;
const String Whole;

bool FollowsPrices(Integer attribute) {
    switch (attribute) {
    case A::MarketValue:
    case A::UnrealisedPL:
    case A::TotalPL:
    case A::Shortfall:
    case A::Value1205:
    case A::Value9018:
    case A::Value9028: return true;
    default: return false;
    }
}

bool HasRatio(const String& currency) {
    return currency.empty() || RatioOf(currency) != 0.0; // exactly 0.0: it is not known
}

bool HasValue(const TCustomPositionData& position) {
    Double value = 0.0;
    return TCustomPositionAdapter::GetInstance()->GetMarketValue(position.GetSymbol(),
                                                                 NetQuantity(position), value) &&
           HasRatio(CurrencyCode(position));
}

// Each name once.
using TNames = TDictionary<String, bool>;

void AddUnvalued(const String& account, TNames& symbols) {
    TPositionDictionary held;
    TCustomPositionAdapter::GetInstance()->GetPositionList(account, held);
    for (const auto& [symbol, position] : held) {
        if (!IsNearZero(NetQuantity(*position)) && !HasValue(*position)) {
            symbols.AddOrSetValue(symbol, true);
        }
    }
}

bool IsInUse(const TCustomAccountData* record) {
    return record != nullptr && (record->GetValue991() != 0.0 || record->GetValue445() != 0.0 ||
                                 record->GetValue607() != 0.0);
}

void AddUnconvertible(const TCustomAccount& account, TNames& currencies) {
    for (Integer index = 0; index < account.GetCurrencyCount(); ++index) {
        const String& currency = account.GetCurrency(index);
        if (HasRatio(currency) || !IsInUse(account.GetAccountData(currency))) continue;
        currencies.AddOrSetValue(currency, true);
    }
}

String ReasonOf(StringView key, const TNames& names) {
    TFewNames few;
    for (const auto& [name, isNamed] : names) few.Add(name);
    return few.IsEmpty() ? String() : FormatText(InterfaceText(key), {few.Text()});
}

} // namespace

void TFewNames::Add(StringView name) {
    if (++FCount > MostNamed + 1) return;
    if (FCount > 1) FText += u", ";
    FText += FCount > MostNamed ? StringView(u"\u2026") : name;
}

TPartialTotals::TReasons TPartialTotals::Find(const String& account, bool isSum) {
    TAccountDictionary accounts;
    if (isSum) Accounts().GetSubAccountList(account, accounts);
    TCustomAccount* own = Accounts().GetAccount(account, /*Flag=*/false);
    if (own != nullptr) accounts.AddOrSetValue(account, own);
    TNames symbols;
    TNames currencies;
    for (const auto& [code, each] : accounts) {
        if (each == nullptr) continue;
        AddUnvalued(code, symbols);
        AddUnconvertible(*each, currencies);
    }
    TReasons reasons;
    reasons.IsSum = isSum;
    reasons.OfRatios = ReasonOf(TerminalKey::Res_CurrenciesWithoutRatio, currencies);
    reasons.OfPricesAndRatios = ReasonOf(TerminalKey::Res_RowsWithoutPrice, symbols);
    if (!symbols.IsEmpty() && !currencies.IsEmpty()) reasons.OfPricesAndRatios += u'\n';
    reasons.OfPricesAndRatios += reasons.OfRatios;
    return reasons;
}

const String& TPartialTotals::Reason(const String& account, Integer attribute, bool isSum) {
    if (account.empty() || !IsAmountFigure(attribute)) return Whole;
    const TReasons* known = FAccounts.Find(account);
    if (known == nullptr || known->IsSum != isSum) {
        FAccounts.AddOrSetValue(account, Find(account, isSum));
        known = FAccounts.Find(account);
    }
    return FollowsPrices(attribute) ? known->OfPricesAndRatios : known->OfRatios;
}

} // namespace quorin
