#include "platform/rtl/ScopedValue.h"
#include "platform/rtl/Text.h"
#include "viewdata/frame/OrderActions.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/position/PositionDataControl.h"
#include "viewdata/position/PositionRecipes.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/Formatter.h"
#include "viewdata/services/GlobalChannelManager.h"
#include "viewdata/services/MessageBoxCtrl.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

constexpr Double MaxQuantity = MaxOrderQuantity;
constexpr Double BatchTolerance = 1e-7;               // above the limit, before the batch asks
constexpr StringView LimitMarks[] = {u"%1s", u"%2s"}; // in the question about the limit

Boolean IsLong(const TCustomPositionData& record) {
    return record.GetQuantity() > 0.0;
}

void SetClosingSide(TCustomClientOrder& order, const TCustomPositionData& record) {
    order.SetBuySell(IsLong(record) ? OrderSide::Sell : OrderSide::Buy);
}

Double ClosingQuantity(const TCustomPositionData& record) {
    return std::min(std::fabs(record.GetQuantity()), MaxQuantity);
}

void MarkAsClosing(TCustomClientOrder& order) {
    order.SetExtraValue(ClosePositionFlagKey, ClosePositionFlagValue);
}

} // namespace

Double TCustomPositionDataControl::GetAvailableQty(TCustomPositionData* Position) {
    if (Position == nullptr) return 0.0;
    const TCustomPositionData& record = *Position;
    const Integer type = record.GetProdType();
    if (type == ProductType::Futures || type == ProductType::Options) return record.GetQuantity();
    const String exchange = TradingExchange(record);
    if (!FT1SettelementMarket.ContainsKey(UpperCase(exchange))) {
        return record.GetQuantity() - record.GetTodayPendSellQty();
    }
    const Double settled =
        record.GetBODQuantity() - record.GetTodaySellQty() - record.GetTodayPendSellQty();
    if (!FT1SettlementIncludeDWQty) return settled;
    return settled + record.GetDepositQty() - record.GetWithdrawQty();
}

Boolean TCustomPositionDataControl::CheckClosePositionQty(Integer RecordIndex) {
    TCustomPositionData* record = RecordAt(RecordIndex);
    return record == nullptr || CheckClosePositionQty(record);
}

// With its sign: a short position is never asked about.
Boolean TCustomPositionDataControl::CheckClosePositionQty(TCustomPositionData* Position) {
    if (Position == nullptr || !(Position->GetQuantity() > MaxQuantity)) return true;
    String text = InterfaceText(ResourceKey::Res_MaxOrdQty);
    const String limit = TCustomFormatter::GetInstance()->FormatInteger(MaxOrderQuantity);
    for (const StringView mark : LimitMarks) text = ReplaceAll(text, mark, limit);
    return TCustomMessageBoxCtrl::GetInstance()->ShowConfirmText(
               nullptr, text, StringView(), nullptr, nullptr, ConfirmYes) == ConfirmYes;
}

Boolean TCustomPositionDataControl::Closes(TCloseStyle style, const TCustomPositionData& record) {
    return style == TCloseStyle::AnyRecord || IsNet(record);
}

Boolean TCustomPositionDataControl::CloseToBest(Integer RecordIndex) {
    return CloseRow(RecordIndex, TClosePrice::Best, TCloseStyle::NetRecords);
}

Boolean TCustomPositionDataControl::CloseToLast(Integer RecordIndex) {
    return CloseRow(RecordIndex, TClosePrice::Last, TCloseStyle::NetRecords);
}

Boolean TCustomPositionDataControl::CloseToMarket(Integer RecordIndex) {
    return CloseRow(RecordIndex, TClosePrice::Market, TCloseStyle::NetRecords);
}

// The question lets rows come and go: the order is for the row that was asked for or for none.
Boolean TCustomPositionDataControl::CloseRow(Integer RecordIndex, TClosePrice price,
                                             TCloseStyle style) {
    if (FMyOrder == nullptr || FIsActionPending) return false;
    const TScopedValue pending(FIsActionPending, true);
    const String symbol = FDataList.Has(RecordIndex) ? FDataList[RecordIndex] : String();
    if (!CheckClosePositionQty(RecordIndex)) return false;
    const TCustomPositionData* record = RecordAt(RecordIndex);
    if (record == nullptr || FDataList[RecordIndex] != symbol) return false;

    TCustomClientOrder& order = *FMyOrder;
    order.Clear();
    if (price == TClosePrice::Market) SetMarketFlag(order);
    if (Closes(style, *record) && !FillCloseOrder(*record, price)) return false;
    if (!(order.GetQuantity() > 0.0)) return false; // what the style does not close stops here
    if (style == TCloseStyle::AnyRecord) MarkAsClosing(order);
    if (!FClosePositionConfirmation) return TakeOrder(order);
    return ConfirmOrder(order, OrderSource::PositionList,
                        InterfaceText(ResourceKey::Res_Conf_ClosePos));
}

Boolean TCustomPositionDataControl::FillCloseOrder(const TCustomPositionData& record,
                                                   TClosePrice price) {
    TCustomClientOrder& order = *FMyOrder;
    const String& symbol = record.GetSymbol();
    if (price != TClosePrice::Market) {
        const TCustomSubItem* item =
            TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/true);
        if (item == nullptr) return false;
        SetClosingSide(order, record);
        const Integer best = IsLong(record) ? Field::BestBid : Field::BestAsk;
        order.SetPrice(item->GetFieldDouble(price == TClosePrice::Best ? best : Field::LastPrice));
    } else {
        SetClosingSide(order, record);
    }
    order.SetSymbol(symbol);
    order.SetAccount(record.GetAccount());
    if (price == TClosePrice::Market) order.SetPrice(0.0);
    order.SetQuantity(ClosingQuantity(record));
    return true;
}

Boolean TCustomPositionDataControl::CloseAllPositions() {
    return CloseAll(TCloseStyle::NetRecords);
}

Boolean TCustomPositionDataControl::CloseAll(TCloseStyle style) {
    if (FMyOrder == nullptr || FIsActionPending) return false;
    const TScopedValue pending(FIsActionPending, true);
    TList<TCustomPositionData*> open;
    if (!CollectOpenPositions(open)) return false;
    if (open.IsEmpty()) {
        TCustomMessageBoxCtrl::GetInstance()->ShowMessageText(
            nullptr, InterfaceText(ResourceKey::Res_NoPositionClose), StringView(), nullptr,
            nullptr);
        return false;
    }
    if (FClosePositionConfirmation && !ConfirmCloseAll()) return false;
    for (const TCustomPositionData* record : open) {
        if (!Closes(style, *record)) continue;
        FillBatchOrder(*record);
        if (style == TCloseStyle::AnyRecord) MarkAsClosing(*FMyOrder);
        TakeOrder(*FMyOrder);
    }
    return true;
}

// Goes by the records as they are now: a question lets anything happen to the dictionary.
Boolean TCustomPositionDataControl::CollectOpenPositions(TList<TCustomPositionData*>& open) {
    TList<TCustomPositionData*> records;
    for (const auto& item : FDataDictionary) {
        if (item.Value != nullptr) records.Add(item.Value);
    }
    Boolean hasAsked = false;
    for (TCustomPositionData* record : records) {
        const Double quantity = record->GetQuantity();
        if (quantity == 0.0) continue; // exactly: such a record is closed
        open.Add(record);
        if (hasAsked || !(std::fabs(quantity) - MaxQuantity > BatchTolerance)) continue;
        hasAsked = true;
        if (!CheckClosePositionQty(record)) return false;
    }
    return true;
}

Boolean TCustomPositionDataControl::ConfirmCloseAll() {
    TCloseAllQuestion question = AskCloseAll();
    question.List->SetAccount(FAccount);
    TOrderTakeActionRecord record;
    record.Order = question.List.release(); // whoever receives the message frees it
    record.Source = OrderSource::PositionList;
    record.Message = std::move(question.Message);
    TCustomGlobalChannelManager::GetInstance()->SendChannelMessage(
        ChannelMessage::CloseAllPositions, Pointer(&record));
    return record.Result;
}

void TCustomPositionDataControl::FillBatchOrder(const TCustomPositionData& record) {
    TCustomClientOrder& order = *FMyOrder;
    order.Clear();
    SetMarketFlag(order);
    order.SetPrice(0.0);
    SetClosingSide(order, record);
    order.SetSymbol(record.GetSymbol());
    order.SetAccount(record.GetAccount());
    order.SetQuantity(ClosingQuantity(record));
}

Boolean TCustomPositionDataControl::CopyOrder(Integer RecordIndex) {
    if (FMyOrder == nullptr || FIsActionPending) return false;
    const TCustomPositionData* record = RecordAt(RecordIndex);
    if (record == nullptr) return false;
    const TScopedValue pending(FIsActionPending, true);

    TCustomClientOrder& order = *FMyOrder;
    order.Clear();
    if (IsNet(*record)) SetClosingSide(order, *record);
    order.SetSymbol(record->GetSymbol());
    order.SetAccount(record->GetAccount());
    order.SetPrice(0.0);
    order.SetQuantity(std::fabs(record->GetQuantity()));
    if (!(order.GetQuantity() > 0.0)) return false;
    CopyToOrderEntry(ChannelMessage::CopyOrder, order, OrderSource::PositionList, GroupID);
    return true;
}

} // namespace quorin
