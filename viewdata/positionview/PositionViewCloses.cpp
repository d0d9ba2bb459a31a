#include "platform/rtl/ScopedValue.h"
#include "viewdata/frame/OrderActions.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/position/CloseAllColumns.h"
#include "viewdata/positionview/PositionViewDataControl.h"
#include "viewdata/positionview/PositionViewPin.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Double MaxQuantity = MaxOrderQuantity;

TCloseAllColumns& Shared() {
    static TCloseAllColumns columns;
    return columns;
}

} // namespace

const TColumnList* TPositionViewCloseAllPositionDataControl::GetColList() {
    return Shared().List();
}

TPositionViewDataControl::TCloseAllQuestion TPositionViewDataControl::AskCloseAll() {
    Shared().Make();
    return {CreateComponent<TPositionViewCloseAllPositionDataControl>(),
            InterfaceText(ResourceKey::Res_BatchConf_ClosePos)};
}

Boolean TPositionViewDataControl::CloseToBest(Integer RecordIndex) {
    const TPin pin(*this);
    return CloseRow(RecordIndex, TClosePrice::Best, TCloseStyle::AnyRecord);
}

Boolean TPositionViewDataControl::CloseToLast(Integer RecordIndex) {
    const TPin pin(*this);
    return CloseRow(RecordIndex, TClosePrice::Last, TCloseStyle::AnyRecord);
}

Boolean TPositionViewDataControl::CloseToMarket(Integer RecordIndex) {
    const TPin pin(*this);
    return CloseRow(RecordIndex, TClosePrice::Market, TCloseStyle::AnyRecord);
}

Boolean TPositionViewDataControl::CloseAllPositions() {
    const TPin pin(*this);
    return CloseAll(TCloseStyle::AnyRecord);
}

// Whatever the position is, what is offered is a sale.
void TPositionViewDataControl::CopySymbol(Integer RecordIndex) {
    TCustomPositionData* record = RecordAt(RecordIndex);
    if (record == nullptr || FMyOrder == nullptr || FIsActionPending) return;
    const TPin pin(*this);
    const TScopedValue pending(FIsActionPending, true);
    TCustomClientOrder& order = *FMyOrder;
    order.Clear();
    order.SetBuySell(OrderSide::Sell);
    order.SetAccount(FAccount);
    order.SetSymbol(record->GetSymbol());
    order.SetQuantity(std::clamp(GetAvailableQty(record), 0.0, MaxQuantity));
    const TCustomSubItem* ticker = record->GetTicker();
    order.SetPrice(ticker != nullptr ? ticker->GetFieldDouble(Field::LastPrice) : 0.0);
    CopyToOrderEntry(ChannelMessage::CopyPrice, order, OrderSource::PositionList, GroupID);
}

} // namespace quorin
