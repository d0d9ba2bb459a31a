#include "viewdata/frame/AccountLookups.h"
#include "viewdata/position/PositionRecipes.h"
#include "viewdata/positionview/PositionViewAttributes.h"
#include "viewdata/positionview/PositionViewDataControl.h"
#include "viewdata/positionview/PositionViewPin.h"
#include "viewdata/positionview/PricingRules.h"
#include "viewdata/services/ChinaConnect.h"
#include "viewdata/services/PositionAdapter.h"
#include "viewdata/services/ProductAdapter.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

// Where every closing trade takes from what was held in the morning.
constexpr StringView ExchangeClosingOldFirst = u"SHFE";

const TCustomProductData* FindProduct(const TCustomPositionData& position) {
    const TCustomProductAdapter* products = TCustomProductAdapter::GetInstance();
    return products != nullptr
               ? products->GetProductData(position.GetSymbol(), position.GetAccount())
               : nullptr;
}

// Of the closing trades, what the day's opening trades do not cover.
Double Uncovered(Double opened, Double closed) {
    return std::fabs(std::min(opened - closed, 0.0));
}

} // namespace

Boolean TPositionViewDataControl::IsMarketOpen(StringView Exchange) {
    return IsExchangeOpen(Exchange);
}

Double TPositionViewDataControl::GetMiddleOne(Double A, Double B, Double C) {
    return MedianOf(A, B, C);
}

Double TPositionViewDataControl::GetPLPrice(TCustomPositionData* Position) {
    return MarkingPrice(*this, Position, {FOptionsPLPrice, FMiddlePLPrice});
}

Boolean TPositionViewDataControl::GetAvgPrice(TCustomPositionData* Position, Double& Price) {
    return AverageCost(Position, Price);
}

Double TPositionViewDataControl::GetPL(TCustomPositionData* Position) {
    const TPin pin(*this);
    return ProfitAndLoss(*this, Position);
}

Double TPositionViewDataControl::GetConstractSize(TCustomPositionData* Position) {
    if (Position == nullptr) return 0.0;
    const TCustomSubItem* item = TCustomSubscribeAdapter::GetInstance()->GetSubItem(
        Position->GetSymbol(), LiveDataType, /*Flag=*/true);
    if (item == nullptr || !item->HasField(Field::ContractSize)) return 0.0;
    return item->GetFieldDouble(Field::ContractSize);
}

Double TPositionViewDataControl::GetLastQty(TCustomPositionData* Position) {
    if (Position == nullptr || Position->GetSide() == TPositionSide::Net) return 0.0;
    const Double start = Position->GetBODQuantity();
    if (start == 0.0) return 0.0; // exactly
    const Boolean isLong = Position->GetSide() == TPositionSide::Long;
    const Double bought = Position->GetTodayBuyQty();
    const Double sold = Position->GetTodaySellQty();
    const Double opened = isLong ? bought : sold;
    const Double closed = isLong ? sold : bought;
    if (TradingExchange(*Position) == ExchangeClosingOldFirst) return start - closed;
    return start - Uncovered(opened, closed);
}

Boolean TPositionViewDataControl::GetProductMargin(TCustomPositionData* Position, Double& Ratio) {
    if (Position == nullptr) return false;
    const TPin pin(*this);
    const TCustomAccount* account = FindAccount(Position->GetAccount());
    if (account == nullptr || account->GetMarginType() != MarginType::Margin) return false;
    const TCustomProductData* product = FindProduct(*Position);
    if (product == nullptr || !product->HasMarginRatio()) return false;
    Ratio = product->GetMarginRatio();
    return true;
}

Boolean TPositionViewDataControl::GetAcceptValue(TCustomPositionData* Position, StringView Currency,
                                                 Double& Value) {
    const TPin pin(*this);
    const String currency(Currency); // may be the control's own, which a look-up may change
    Double ratio = 0.0;
    if (Position == nullptr || !GetProductMargin(Position, ratio)) return false;
    Double value = 0.0;
    if (!TCustomPositionAdapter::GetInstance()->GetMarketValue(Position->GetSymbol(),
                                                               NetQuantity(*Position), value)) {
        return false;
    }
    value *= ratio;
    if (!currency.empty()) {
        value = InBaseCurrency(*Position, value);
        const Double target = RatioOf(currency);
        if (target != 0.0) value /= target; // exactly 0.0: it is not known
    }
    Value = value;
    return true;
}

Double TPositionViewDataControl::GetTotalMarketValue() {
    return Total(PositionAttribute::ConvertedMarketValue);
}

Double TPositionViewDataControl::GetTotalAcceptValue() {
    return Total(PositionViewAttribute::ConvertedAcceptValue);
}

Double TPositionViewDataControl::Total(Integer attribute) {
    const TPin pin(*this);
    const Boolean splits = IsChinaConnectOn();
    Double total = 0.0;
    for (Integer row = 0; row < GetCount(); ++row) {
        if (splits && !IsInTotal(row)) continue;
        const Variant value = GetValue(row, attribute);
        if (value.IsNumber()) total += value.ToDouble(); // text counts as nothing
    }
    if (!splits || !FShowingChinaConnectAccountData) return total;
    const Double ratio = RatioOf(FChinaConnectCurrency);
    return IsNearZero(ratio) ? total : total / ratio;
}

Boolean TPositionViewDataControl::IsInTotal(Integer row) const {
    const TCustomPositionData* record = RecordAt(row);
    if (record == nullptr) return false;
    const TCustomSubItem* ticker = record->GetTicker();
    const String exchange =
        ticker != nullptr ? ticker->FieldText(Field::Exchange) : ExchangeCode(*record);
    return IsChinaConnectExchange(exchange) == FShowingChinaConnectAccountData;
}

} // namespace quorin
