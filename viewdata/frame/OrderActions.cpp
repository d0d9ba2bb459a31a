#include "viewdata/frame/OrderActions.h"

#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/GlobalChannelManager.h"
#include "viewdata/services/OrderActionManager.h"

namespace quorin {

void SetMarketFlag(TCustomClientOrder& order) {
    order.SetOrderFlags(order.GetOrderFlags() | OrderFlag::Market);
}

Boolean TakeOrder(TCustomClientOrder& order) {
    TCustomOrderActionManager* manager = TCustomOrderActionManager::GetInstance();
    return manager != nullptr &&
           manager->TakeOrderAction(nullptr, &order, OrderAction::Place, /*Flag=*/true);
}

Boolean ConfirmOrder(TCustomClientOrder& order, Integer source, StringView message) {
    TOrderTakeActionRecord record{.Order = &order, .Source = source, .Message = String(message)};
    TCustomGlobalChannelManager::GetInstance()->SendChannelMessage(ChannelMessage::TakeOrderAction,
                                                                   Pointer(&record));
    return record.Result;
}

void CopyToOrderEntry(Integer channelMessage, TCustomClientOrder& order, Integer source,
                      StringView groupID) {
    TCopyOrderRecord record{.Order = &order, .Source = source, .GroupID = String(groupID)};
    TCustomGlobalChannelManager::GetInstance()->SendChannelMessage(channelMessage,
                                                                   Pointer(&record));
}

} // namespace quorin
