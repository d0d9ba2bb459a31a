#include "embedded/OrderService.h"

namespace quorin {

std::unique_ptr<TCustomClientOrder> TEmbeddedOrderAdapter::CreateClientOrder() {
    return std::make_unique<TEmbeddedClientOrder>();
}

Boolean TEmbeddedOrderActionManager::TakeOrderAction(TObject*, TCustomClientOrder* Order,
                                                     Integer Action, Boolean) {
    const auto* order = ObjectAs<TEmbeddedClientOrder>(Order);
    if (order == nullptr || Action != OrderAction::Place) {
        FDesk.RefuseUnknown();
        return false;
    }
    return FDesk.Take(order->Values()) == TOrderReason::None;
}

} // namespace quorin
