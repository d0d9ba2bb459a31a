#include "embedded/AccountRecord.h"

#include "platform/rtl/Text.h"
#include "viewdata/services/CurrencyAdapter.h"

namespace quorin {

namespace {

constexpr StringView ProfessionalFlag = u"1";

} // namespace

void TEmbeddedAccountData::GetFieldString(Integer Attribute, String& Text) const {
    const Integer number = FNumbers.Find(Attribute);
    if (Attribute == AccountCodeAttribute) {
        Text = FAccount;
    } else if (FTexts.Has(number)) {
        Text = FTexts[number];
    } else {
        Text.clear();
    }
}

void TEmbeddedAccountData::SetFigures(const TBalanceFigures& figures) {
    CopyAmounts(figures, FFigures);
    for (String& text : FTexts) text.clear();
    for (const auto& field : figures.Fields) {
        const Integer number = FNumbers.Obtain(field.Key);
        while (!FTexts.Has(number)) FTexts.Add(String());
        FTexts[number] = field.Value;
    }
    Settle();
}

bool TEmbeddedAccountData::Move(const TBalanceMoves& moves) {
    if (moves == FMoves) return false;
    FMoves = moves;
    MoveFigures(FFed, moves, FFigures);
    return true;
}

void TEmbeddedAccountData::Settle() {
    CopyAmounts(FFigures, FFed);
    FMoves = {};
}

Boolean TEmbeddedAccountData::IsConvertible() const {
    if (FCurrency.empty()) return true;
    const TCustomCurrencyAdapter* currencies = TCustomCurrencyAdapter::GetInstance();
    return currencies != nullptr && currencies->GetCurrencyRatio(FCurrency) != 0.0;
}

void TEmbeddedAccount::SetDetails(const TAccountDetails& details) {
    FDetails = details;
    FLateDetails.reset();
}

void TEmbeddedAccount::SetDetailsLate(const TAccountDetails& details) {
    FLateDetails = details;
    FDetails = {.Tag = details.Tag,
                .Name = details.Name,
                .Type = details.Type,
                .MasterAccount = details.MasterAccount,
                .MarginType = details.MarginType,
                .PrincipalType = details.PrincipalType,
                .IsAggregate = details.IsAggregate,
                .Status = details.Status};
}

void TEmbeddedAccount::LoadDetails() {
    if (!FLateDetails.has_value()) return;
    FDetails = *FLateDetails;
    FLateDetails.reset();
}

bool TEmbeddedAccount::SetBalance(StringView currency, const TBalanceFigures& figures) {
    const Integer number = FNumbers.Currencies.Obtain(currency);
    while (!FBalances.Has(number)) FBalances.Add(nullptr);
    auto& record = FBalances[number];
    const bool isNew = record == nullptr;
    if (isNew) {
        record = std::make_unique<TEmbeddedAccountData>(FAccount, currency, FNumbers);
        if (!currency.empty()) FCurrencies.Add(String(currency));
    }
    record->SetFigures(figures);
    return isNew;
}

String TEmbeddedAccount::GetAccountField(StringView Key) const {
    const String* value = FDetails.Fields.Find(Key);
    return value != nullptr ? *value : String();
}

TCustomAccountData* TEmbeddedAccount::GetAccountData(StringView Currency) const {
    return FindBalance(Currency);
}

TEmbeddedAccountData* TEmbeddedAccount::FindBalance(StringView currency) const {
    const Integer number = FNumbers.Currencies.Find(currency);
    return FBalances.Has(number) ? FBalances[number].get() : nullptr;
}

String TEmbeddedAccount::GetProfessionalFlag(StringView Value) const {
    const bool isProfessional = !Value.empty() && SameText(Value, FDetails.InvestorClass);
    return String(isProfessional ? ProfessionalFlag : StringView());
}

const String& TEmbeddedAccount::GetCurrency(Integer Index) const {
    return Index >= 0 && Index < FCurrencies.Count() ? FCurrencies[Index] : FNoCurrency;
}

} // namespace quorin
