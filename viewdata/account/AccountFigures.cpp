#include "platform/rtl/Numbers.h"
#include "platform/rtl/ScopedValue.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/account/AccountDataControl.h"
#include "viewdata/account/AccountPin.h"
#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ChinaConnect.h"

#include <algorithm>

// The figures of a record, and their sums over sub-accounts.

namespace quorin {

namespace {

namespace A = AccountAttribute;

constexpr Double NoShortfall = 0.0;

TCustomAccountData* FindChinaRecord(const String& account, const String& currency) {
    const TCustomAccount* china = FindAccount(GetChinaConnectAccount(account));
    return china != nullptr ? china->GetAccountData(currency) : nullptr;
}

Double ShortfallOf(const TCustomAccountData* record) {
    return record != nullptr ? record->GetValue996() : NoShortfall;
}

Variant HolderText(const String& code, Integer attribute) {
    const TCustomAccount* account = code.empty() ? nullptr : FindAccount(code);
    if (account == nullptr) return Variant::EmptyText();
    return attribute == A::AccountTag ? account->GetAccountTag() : account->GetName();
}

Boolean IsSummed(Integer attribute) {
    switch (attribute) {
    case A::AccountCode:
    case A::AccountTag:
    case A::HolderName:
    case A::Currency:
    case A::CurrencyRatio: return false;
    default: return true;
    }
}

} // namespace

Boolean TCustomAccountInfoDataControl::ShowsChinaData() const {
    return FShowingChinaConnectAccountData && IsChinaConnectOn();
}

String TCustomAccountInfoDataControl::CustomColumnType(Integer attribute) const {
    return TCustomLanguageManager::GetInstance()->GetResourceAttribute(
        FCustomColumnTagID, IntegerToText(attribute - FirstCustomColumn), ResourceAttribute::Type);
}

Boolean TCustomAccountInfoDataControl::IsNumericColumn(Integer attribute) const {
    if (attribute == FSummedColumn.Attribute) return FSummedColumn.IsNumeric;
    return IsNumericColumnType(CustomColumnType(attribute));
}

Variant TCustomAccountInfoDataControl::PresetOf(Integer attribute) const {
    switch (attribute) {
    case A::AccountCode:
    case A::AccountTag:
    case A::HolderName:
    case A::Currency: return Variant::EmptyText();
    default: break;
    }
    if (attribute < FirstCustomColumn || IsNumericColumn(attribute)) return 0;
    return Variant::EmptyText();
}

Variant TCustomAccountInfoDataControl::GetAccountCurrencyData(TCustomAccountData* Data,
                                                              Integer Attribute) {
    if (Data == nullptr) return PresetOf(Attribute);
    switch (Attribute) {
    case A::AccountCode: return Data->FieldText(A::AccountCode);
    case A::AccountTag:
    case A::HolderName: return HolderText(Data->FieldText(A::AccountCode), Attribute);
    case A::Currency: return CurrencyText(*Data);
    case A::CurrencyRatio:
        if (Data->GetCurrency().empty() && Currencies().IsMultiCurrency()) return 0;
        return Currencies().GetCurrencyRatio(Data->GetCurrency());
    default: break;
    }
    if (ShowsChinaData()) {
        const TLifeline::TWatch watch(FLifeline);
        Data = FindChinaRecord(Data->GetAccount(), Data->GetCurrency());
        if (!watch.IsAlive()) return Variant();
        if (Data == nullptr) return PresetOf(Attribute);
    }
    if (Attribute >= FirstCustomColumn) return GetFieldValue(Data, Attribute);
    return BuiltInFigure(*Data, Attribute);
}

Variant TCustomAccountInfoDataControl::CurrencyText(const TCustomAccountData& data) const {
    const String& own = data.GetCurrency();
    String text = ResourceText(ResourceTag::Currency, own.empty() ? FCurrency : own);
    return text.empty() ? data.GetCurrency() : text;
}

Double TCustomAccountInfoDataControl::BuiltInFigure(const TCustomAccountData& data,
                                                    Integer attribute) {
    // clang-format off
    switch (attribute) {
    case A::AvailableCash: return data.GetValue991() - data.GetValue990();
    case A::Value155:      return data.GetValue155();
    case A::Value156:      return data.GetValue156();
    case A::Value185:      return data.GetValue185();
    case A::Value186:      return data.GetValue186();
    case A::RealisedPL:    return data.GetValue607() - data.GetValue446();
    case A::MarketValue:   return data.GetValue445();
    case A::UnrealisedPL:  return data.GetValue446();
    case A::Value604:      return data.GetValue604();
    case A::Value606:      return data.GetValue606();
    case A::TotalPL:       return data.GetValue607();
    case A::HeldCash:      return data.GetValue990();
    case A::Cash:          return data.GetValue991();
    case A::Shortfall:     return std::min(NoShortfall, data.GetValue996());
    case A::Value1205:     return data.GetValue1205();
    case A::Value1502:     return data.GetValue1502();
    case A::Value1503:     return data.GetValue1503();
    case A::Value9018:     return data.GetValue9018A() - data.GetValue9018B();
    case A::Value9028:     return data.GetValue9028();
    default:               break;
    }
    // clang-format on
    TBorrowed<String> text(FFieldText);
    data.GetFieldString(attribute, *text);
    return ToDoubleOr(*text, 0.0);
}

Variant TCustomAccountInfoDataControl::GetFieldValue(TCustomAccountData* Data, Integer Attribute) {
    if (Data == nullptr) return PresetOf(Attribute);
    const Integer field = Attribute - FirstCustomColumn;
    if (!IsNumericColumn(Attribute)) return Data->FieldText(field);
    TBorrowed<String> text(FFieldText);
    Data->GetFieldString(field, *text);
    if ((*text).empty()) return 0;
    return ToDoubleOr(*text, 0.0);
}

Variant TCustomAccountInfoDataControl::GetAggregatedAccountCurrencyData(TCustomAccountData* Data,
                                                                        Integer Attribute) {
    const Boolean isSummed = IsSummed(Attribute);
    try {
        return isSummed ? AggregatedFigure(Data, Attribute)
                        : GetAccountCurrencyData(Data, Attribute);
    } catch (const std::exception&) {
        return isSummed ? Variant(0) : Variant();
    }
}

Variant TCustomAccountInfoDataControl::AggregatedFigure(TCustomAccountData* data,
                                                        Integer attribute) {
    if (data == nullptr) return 0;
    const TLifeline::TWatch watch(FLifeline);
    const TCustomAccount* account = FindAccount(data->GetAccount());
    if (!watch.IsAlive()) return 0;
    if (account == nullptr || !FAggregated || !account->IsAggregateAccount()) {
        return GetAccountCurrencyData(data, attribute);
    }
    if (account->GetAccountType() == AccountType::SummedByService) {
        TCustomAccountData* summed =
            Accounts().GetSubAccountData(data->GetAccount(), data->GetCurrency());
        return watch.IsAlive() && summed != nullptr ? GetAccountCurrencyData(summed, attribute)
                                                    : Variant(0);
    }
    // The limit comes after the summing: one account's surplus makes up for another's shortfall.
    if (attribute == A::Shortfall) return std::min(NoShortfall, SumOfShortfalls(*data));
    return SumOfFigures(*data, attribute);
}

// A service may tell of changes while it is asked: what is left of the list then is not touched,
// and the sum begins again.
template <class Own, class Sub>
Double TCustomAccountInfoDataControl::SumOverSubAccounts(Own own, Sub sub) {
    const TLifeline::TWatch watch(FLifeline);
    const Integer change = FSubAccountChanges;
    const auto stands = [&] { return watch.IsAlive() && change == FSubAccountChanges; };
    Double sum = own();
    if (stands()) {
        for (const auto& item : FSubAccountList) {
            if (item.Value != nullptr) sum += sub(*item.Value);
            if (!stands()) break;
        }
    }
    if (stands()) return sum;
    return watch.IsAlive() ? SumByCode(own, sub) : 0.0;
}

// The sum over a list that does not keep still: over its codes, each looked up when its turn comes.
template <class Own, class Sub>
Double TCustomAccountInfoDataControl::SumByCode(Own own, Sub sub) {
    const TLifeline::TWatch watch(FLifeline);
    TList<String> codes;
    for (const auto& item : FSubAccountList) codes.Add(item.Key);
    Double sum = own();
    for (const String& code : codes) {
        if (!watch.IsAlive()) break;
        TCustomAccount* const* account = FSubAccountList.Find(code);
        if (account != nullptr && *account != nullptr) sum += sub(**account);
    }
    return sum;
}

Double TCustomAccountInfoDataControl::SumOfFigures(TCustomAccountData& data, Integer attribute) {
    TColumnKind column = FSummedColumn;
    if (attribute >= FirstCustomColumn) {
        column = {attribute, IsNumericColumnType(CustomColumnType(attribute))};
    }
    const TKnownColumn known(*this, column);
    return SumOverSubAccounts(
        [&] { return GetAccountCurrencyData(&data, attribute).ToDouble(); },
        [&](const TCustomAccount& account) {
            TCustomAccountData* record = account.GetAccountData(data.GetCurrency());
            return record != nullptr ? GetAccountCurrencyData(record, attribute).ToDouble() : 0.0;
        });
}

Double TCustomAccountInfoDataControl::SumOfShortfalls(TCustomAccountData& data) {
    const String& currency = data.GetCurrency();
    if (ShowsChinaData()) {
        return SumOverSubAccounts(
            [&] { return ShortfallOf(FindChinaRecord(data.GetAccount(), currency)); },
            [&](const TCustomAccount& account) {
                return ShortfallOf(FindChinaRecord(account.GetAccount(), currency));
            });
    }
    return SumOverSubAccounts([&] { return data.GetValue996(); },
                              [&](const TCustomAccount& account) {
                                  return ShortfallOf(account.GetAccountData(currency));
                              });
}

} // namespace quorin
