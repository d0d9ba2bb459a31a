#include "terminal/forms/PositionViewForm.h"

#include "platform/rtl/Numbers.h"
#include "terminal/forms/PartialTotals.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/positionview/PositionViewAttributes.h"
#include "viewdata/services/CurrencyAdapter.h"

#include <iterator>

namespace quorin {

namespace {

namespace A = PositionAttribute;
namespace V = PositionViewAttribute;

constexpr TFormColumn Columns[] = {
    {A::SymbolCode, ResourceKey::Res_Symbol, 96, u"Symbol", false},
    {A::SymbolName, ResourceKey::Res_SymbolName, 136, u"Name", false},
    {V::Side, TerminalKey::Res_Side, 48, u"Side", false},
    {V::NetQuantity, TerminalKey::Res_Net, 72, u"Net", true},
    {V::TotalBought, TerminalKey::Res_Bought, 72, u"Bought", true},
    {V::TotalSold, TerminalKey::Res_Sold, 72, u"Sold", true},
    {V::AveragePrice, TerminalKey::Res_AveragePrice, 88, u"AvgPrice", false},
    {A::LastPrice, TerminalKey::Res_Last, 80, u"Last", false},
    {A::MarketValue, TerminalKey::Res_MarketValue, 128, u"MarketValue", false},
    {V::AcceptValue, TerminalKey::Res_AcceptValue, 128, u"AcceptValue", false},
    {V::RealisedPL, TerminalKey::Res_RealisedPL, 112, u"RealisedPL", false},
    {V::UnrealisedPL, TerminalKey::Res_UnrealisedPL, 112, u"UnrealisedPL", false},
    {V::TotalPL, TerminalKey::Res_TotalPL, 112, u"TotalPL", false},
    {A::Currency, ResourceKey::Res_Currency, 64, u"Currency", false},
};

// By number.
constexpr Integer All[] = {
    A::SymbolCode,
    A::LastPrice,
    A::LongQuantity,
    A::Account,
    V::Side,
    A::Exchange,
    A::SymbolName,
    A::Currency,
    A::Expiry,
    A::PreviousClose,
    A::AvailableQuantity,
    V::AveragePrice,
    V::PrincipalType,
    V::TotalBought,
    V::TotalSold,
    V::AverageBuyPrice,
    V::AverageSellPrice,
    V::NetQuantity,
    V::HeldShort,
    V::RealisedPL,
    A::MarketValue,
    A::ConvertedMarketValue,
    V::MarginRatio,
    V::UnrealisedPL,
    A::ShortQuantity,
    V::TodayBuyQuantity,
    V::TodaySellQuantity,
    V::PendingBuyQuantity,
    A::PendingSellQuantity,
    V::Deposited,
    V::Withdrawn,
    V::ContractSize,
    V::TotalPL,
    V::TodayNetAmount,
    V::TodayNetQuantity,
    V::ConvertedAcceptValue,
    V::AcceptValue,
    V::CoveredQuantity,
    V::MovedQuantity,
    V::TodayAverageBuyPrice,
    V::TodayAverageSellPrice,
    V::TodayBuyAmount,
    V::TodaySellAmount,
    A::StartQuantity,
    V::Custody,
    V::NetWithCustody,
    V::LeftFromStart,
    V::TodayOpened,
    V::TodayClosed,
};

constexpr Integer MoneyDecimals = 2;

String MoneyText(Double amount, StringView currency) {
    return FormatDecimals(amount, MoneyDecimals, /*grouping=*/true) + u' ' + String(currency);
}

Double RatioOf(const String& currency) {
    return TCustomCurrencyAdapter::GetInstance()->GetCurrencyRatio(currency);
}

String Labelled(StringView key, StringView text) {
    return FormatText(u"%s: %s", {InterfaceText(key), text});
}

} // namespace

TPositionViewControl::TPositionViewControl(TComponent* AOwner) : Inherited(Columns, AOwner) {}

String TPositionViewControl::ChinaConnectCurrency() const {
    return FShowingChinaConnectAccountData ? FChinaConnectCurrency : String();
}

// A currency without a ratio leaves them as they are.
String TPositionViewControl::TotalsCurrency() const {
    const String currency = ChinaConnectCurrency();
    const bool isKnown = !currency.empty() && RatioOf(currency) != 0.0;
    return isKnown ? currency : FConvertCurrency;
}

TPositionViewForm::TPositionViewForm()
    : FControl(BindPositions(CreateComponent<TPositionViewControl>())) {}

bool TPositionViewForm::IsText(Integer attribute) const {
    return attribute == V::Side || attribute == V::PrincipalType || TListForm::IsText(attribute);
}

std::vector<Integer> TPositionViewForm::Attributes() {
    return {std::begin(All), std::end(All)};
}

String TPositionViewForm::Title() {
    const String& filter = FControl->FilterCurrency();
    String title = AccountTitle(FControl->Account(), FControl->Aggregated());
    const String connect = FControl->ChinaConnectCurrency();
    if (!filter.empty()) title += u"  " + Labelled(ResourceKey::Res_Currency, filter);
    if (!connect.empty()) title += u"  " + Labelled(TerminalKey::Res_ChinaConnect, connect);
    return title;
}

std::vector<String> TPositionViewForm::Summary() {
    std::vector<String> lines = HolderLines();
    if (String status = StatusText(); !status.empty()) lines.push_back(std::move(status));
    lines.push_back(Labelled(TerminalKey::Res_MarketValue, MarketValueText()));
    lines.push_back(Labelled(TerminalKey::Res_AcceptValue, AcceptValueText()));
    return lines;
}

String TPositionViewForm::PartialReason() {
    const auto isNothing = [](const Variant& value) {
        Double number = 0.0;
        return !value.TryToDouble(number) || number == 0.0;
    };
    TFewNames symbols;
    for (Integer row = 0; row < RowCount(); ++row) {
        if (isNothing(Value(row, V::NetQuantity))) continue;
        if (isNothing(Value(row, A::ConvertedMarketValue))) symbols.Add(Symbol(row));
    }
    if (symbols.IsEmpty()) return {};
    return FormatText(InterfaceText(TerminalKey::Res_RowsWithoutPrice), {symbols.Text()});
}

std::vector<String> TPositionViewForm::HolderLines() {
    String status;
    const String info = FControl->GetAccountInfo(status);
    std::vector<String> lines;
    for (const StringView line : Split(info, u'\n')) lines.emplace_back(TrimRight(line));
    return lines;
}

String TPositionViewForm::StatusText() {
    String status;
    FControl->GetAccountInfo(status);
    return status;
}

String TPositionViewForm::MarketValueText() {
    return MoneyText(FControl->GetTotalMarketValue(), FControl->TotalsCurrency());
}

String TPositionViewForm::AcceptValueText() {
    if (FControl->Aggregated()) return String(NothingToShow);
    return MoneyText(FControl->GetTotalAcceptValue(), FControl->TotalsCurrency());
}

} // namespace quorin
