#include "viewdata/positionview/AggregatePositionData.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <cmath>

namespace quorin {

namespace {

constexpr Double NominalTolerance = 1e-8;
constexpr Integer UnknownProductType = 0;

Boolean IsPrice(Double value) {
    return std::fabs(value) > NominalTolerance;
}

// At the tolerance itself a last price counts, and a quote is not yet nothing.
Boolean IsNothing(Double value) {
    return std::fabs(value) < NominalTolerance;
}

} // namespace

TAggregatePositionData::TAggregatePositionData(StringView Symbol, StringView Account)
    : FAccount(Account), FSymbol(Symbol) {
    FTicker = TCustomSubscribeAdapter::GetInstance()->GetSubItem(FSymbol, LiveDataType,
                                                                 /*Flag=*/true);
    if (FTicker != nullptr) {
        FProdType = ToIntegerOr(FTicker->FieldText(Field::ProductType), UnknownProductType);
    }
}

std::unique_ptr<TCustomPositionData> TAggregatePositionData::CreateBy(StringView Symbol,
                                                                      StringView Account) const {
    return std::make_unique<TAggregatePositionData>(Symbol, Account);
}

Double TAggregatePositionData::GetPClose() const {
    return FTicker != nullptr ? FTicker->GetFieldDouble(Field::PreviousClose) : 0.0;
}

Double TAggregatePositionData::GetNominal() const {
    if (FTicker == nullptr || FTicker->GetItemIndex() < 0 ||
        FTicker->GetStatus() != ItemStatus::Ready) {
        return 0.0;
    }
    Double last = 0.0;
    if (TryParseDouble(FTicker->FieldText(Field::LastPrice), last) && !IsNothing(last)) return last;
    const Double bid = FTicker->GetFieldDouble(Field::BestBid);
    const Double close = GetPClose();
    const Double ask = ToDoubleOr(FTicker->FieldText(Field::BestAsk), 0.0);
    if (IsNothing(ask) && IsNothing(bid) && IsNothing(close)) return 0.0;
    if (IsPrice(close)) return close;
    if (IsPrice(bid) && IsPrice(ask)) return (bid + ask) / 2.0;
    return 0.0;
}

void TAggregatePositionData::AssignPositionData(const TCustomPositionData* Data) {
    FQuantity = Data->GetQuantity();
    FBODQuantity = Data->GetBODQuantity();
    FShortQuantity = Data->GetShortQuantity();
    FBODShortQuantity = Data->GetBODShortQuantity();
    FTodayBuyQty = Data->GetTodayBuyQty();
    FTodayBuyAmount = Data->GetTodayBuyAmount();
    FTodaySellQty = Data->GetTodaySellQty();
    FTodaySellAmount = Data->GetTodaySellAmount();
    FTodayPendBuyQty = Data->GetTodayPendBuyQty();
    FTodayPendSellQty = Data->GetTodayPendSellQty();
    FWithdrawQty = Data->GetWithdrawQty();
    FDepositQty = Data->GetDepositQty();
    FCoveredQty = Data->GetCoveredQty();
    FCustodianQty = Data->GetCustodianQty();
    FPendCustodianQty = Data->GetPendCustodianQty();
}

void TAggregatePositionData::IncPositionData(const TCustomPositionData* Data) {
    FQuantity += Data->GetQuantity();
    FBODQuantity += Data->GetBODQuantity();
    FShortQuantity += Data->GetShortQuantity();
    FBODShortQuantity += Data->GetBODShortQuantity();
    FTodayBuyQty += Data->GetTodayBuyQty();
    FTodayBuyAmount += Data->GetTodayBuyAmount();
    FTodaySellQty += Data->GetTodaySellQty();
    FTodaySellAmount += Data->GetTodaySellAmount();
    FTodayPendBuyQty += Data->GetTodayPendBuyQty();
    FTodayPendSellQty += Data->GetTodayPendSellQty();
    FWithdrawQty += Data->GetWithdrawQty();
    FDepositQty += Data->GetDepositQty();
    FCoveredQty += Data->GetCoveredQty();
    FCustodianQty += Data->GetCustodianQty();
    FPendCustodianQty += Data->GetPendCustodianQty();
}

} // namespace quorin
