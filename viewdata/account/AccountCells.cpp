#include "platform/rtl/Numbers.h"
#include "viewdata/account/AccountAttributes.h"
#include "viewdata/account/AccountDataControl.h"
#include "viewdata/account/AccountPin.h"
#include "viewdata/frame/AccountLookups.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ChinaConnect.h"
#include "viewdata/services/Formatter.h"
#include "viewdata/services/MarketDataFormatter.h"

// The cells of the information tree, and figures as text.

namespace quorin {

namespace {

namespace A = AccountAttribute;

String CurrencyName(const String& currency) {
    return ResourceText(ResourceTag::Currency, currency);
}

// An amount or ratio in base terms, in another currency; as it is where that is none or has no
// ratio.
Double InCurrency(Double value, const String& currency) {
    if (currency.empty()) return value;
    const Double ratio = RatioOf(currency);
    return ratio != 0.0 ? value / ratio : value; // exactly 0.0: it is not known
}

Boolean IsHolderOrCurrency(Integer attribute) {
    return attribute == A::AccountCode || attribute == A::AccountTag ||
           attribute == A::HolderName || attribute == A::Currency;
}

String Format(Double value, TDisplayDataType type, Boolean flag) {
    return TCustomFormatter::GetInstance()->FormatValue(value, type, StringView(), flag, nullptr);
}

} // namespace

struct TCustomAccountInfoDataControl::TCell {
    enum class TKind : Byte { None, Total, Amount, Converted } Kind = TKind::None;
    Integer Attribute = NoAttribute;
    StringView Currency = TotalRecord;
};

TCustomAccountInfoDataControl::TCell TCustomAccountInfoDataControl::CellOf(Pointer node) const {
    if (node == static_cast<const TObject*>(&FNodeList)) return {};
    if (const auto* row = ObjectAs<TAccountDataValueNode>(node)) {
        return {TCell::TKind::Amount, row->GetAttribute(), row->Currency()};
    }
    if (const auto* row = ObjectAs<TAccountDataNode>(node)) {
        return {TCell::TKind::Total, row->Attribute(), TotalRecord};
    }
    if (const auto* row = ObjectAs<TConvertAccountDataValueNode>(node)) {
        return {TCell::TKind::Converted, row->GetAttribute(), row->Currency()};
    }
    return {};
}

String TCustomAccountInfoDataControl::GetResourceHeader(Integer Attribute) {
    return ColumnCaption(&FColumnList, Attribute, FCustomColumnTagID);
}

Variant TCustomAccountInfoDataControl::Figure(TCustomAccountData* data, Integer attribute) {
    return FAggregated ? GetAggregatedAccountCurrencyData(data, attribute)
                       : GetAccountCurrencyData(data, attribute);
}

Variant TCustomAccountInfoDataControl::GetValue(Pointer Node, Integer ColumnID) {
    using enum TCell::TKind;
    const TPin pin(*this);
    const TCell cell = CellOf(Node);
    const Boolean isCaption = ColumnID == AccountTreeColumn::Caption;
    if (FAccount.empty()) {
        return isCaption && cell.Kind == Total ? GetResourceHeader(cell.Attribute) : String();
    }
    if (cell.Kind == None) return Variant::EmptyText();
    const TCustomAccount* account = FindAccount(FAccount);
    if (account == nullptr || !pin.IsAlive()) return Variant::EmptyText();
    if (isCaption) {
        return cell.Kind == Total ? GetResourceHeader(cell.Attribute)
                                  : CurrencyName(String(cell.Currency));
    }
    if (ColumnID != AccountTreeColumn::Value) return Variant::EmptyText();
    TCustomAccountData* data = account->GetAccountData(cell.Currency);
    return cell.Kind == Converted ? GetAccountCurrencyData(data, cell.Attribute)
                                  : Figure(data, cell.Attribute);
}

String TCustomAccountInfoDataControl::GetDisplayValue(Pointer Node, Integer ColumnID) {
    using enum TCell::TKind;
    const TPin pin(*this);
    const TCell cell = CellOf(Node);
    if (FAccount.empty() || cell.Kind == None) return String();
    const TCustomAccount* account = FindAccount(FAccount);
    if (account == nullptr || !pin.IsAlive()) return String();
    if (ColumnID == AccountTreeColumn::Caption) {
        return cell.Kind == Total ? GetResourceHeader(cell.Attribute)
                                  : CurrencyName(String(cell.Currency));
    }
    if (ColumnID != AccountTreeColumn::Value) return String();
    TCustomAccountData* data = account->GetAccountData(cell.Currency);
    switch (cell.Kind) {
    case Total: return GetAccountCurrencyDisplayData(data, cell.Attribute, /*Convert=*/true);
    case Converted:
        if (IsBlank(data, cell.Attribute)) return String();
        return GetAccountCurrencyDisplayData(data, cell.Attribute, /*Convert=*/false);
    default: // a row without a currency would be another total
        return GetAccountCurrencyDisplayData(data, cell.Attribute, cell.Currency.empty());
    }
}

// What may not be shown in another currency than the record's.
Boolean TCustomAccountInfoDataControl::IsBlank(const TCustomAccountData* record,
                                               Integer attribute) const {
    const Boolean isBound =
        attribute == A::Value604 || attribute == A::Value606 || attribute == A::Shortfall;
    return isBound && FFilterCurr.empty() && record != nullptr && !record->GetCurrency().empty() &&
           !record->IsConvertible();
}

String TCustomAccountInfoDataControl::GetAccountCurrencyDisplayData(TCustomAccountData* Data,
                                                                    Integer Attribute,
                                                                    Boolean Convert) {
    if (Data == nullptr) return String();
    try {
        return DisplayText(*Data, Attribute, Convert);
    } catch (const std::exception&) {
        return String();
    }
}

String TCustomAccountInfoDataControl::DisplayText(TCustomAccountData& data, Integer attribute,
                                                  Boolean convert) {
    const TLifeline::TWatch watch(FLifeline);
    const String currency = data.GetCurrency(); // the record may change while others are asked
    const String shown = FCurrency;
    const Variant value = Figure(&data, attribute);
    if (!watch.IsAlive()) return String();
    if (IsHolderOrCurrency(attribute)) return value.ToText();
    if (attribute == A::CurrencyRatio) {
        if (currency.empty() && Currencies().IsMultiCurrency()) return String();
        return Format(InCurrency(value.ToDouble(), shown), DisplayDataType::CurrencyRatio,
                      /*flag=*/true);
    }
    if (value.IsNull()) return String();
    const Boolean isCustom = attribute >= FirstCustomColumn;
    const String type = isCustom ? CustomColumnType(attribute) : String();
    if (isCustom && !IsNumericColumnType(type)) return value.ToText();
    Double amount = value.ToDouble();
    if (convert && !shown.empty()) {
        // With China Connect on, amounts count as amounts in the base currency.
        if (!currency.empty() && !IsChinaConnectOn()) amount *= RatioOf(currency);
        amount = InCurrency(amount, shown);
    }
    return Format(amount, isCustom ? GetDataType(type) : DisplayDataType::Amount, /*flag=*/false);
}

} // namespace quorin
