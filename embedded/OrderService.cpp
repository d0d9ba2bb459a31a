#include "embedded/OrderService.h"

#include "viewdata/services/AccountAdapter.h"
#include "viewdata/services/MarketAdapter.h"

namespace quorin {

namespace {

bool IsAccountKnown(const String& account) {
    const TCustomAccountAdapter* accounts = TCustomAccountAdapter::GetInstance();
    return accounts != nullptr && accounts->IsAccountKnown(account);
}

bool IsSymbolKnown(const String& symbol) {
    const TCustomMarketAdapter* market = TCustomMarketAdapter::GetInstance();
    return market != nullptr && market->FindMarketData(symbol) != nullptr;
}

// False for NaN as well.
bool IsOrderQuantity(Double quantity) {
    return quantity > 0.0 && quantity <= MaxOrderQuantity;
}

bool IsComplete(const TOrderValues& order) {
    const bool hasSide = order.BuySell == OrderSide::Buy || order.BuySell == OrderSide::Sell;
    return hasSide && IsOrderQuantity(order.Quantity) && IsAccountKnown(order.Account) &&
           IsSymbolKnown(order.Symbol);
}

} // namespace

std::unique_ptr<TCustomClientOrder> TEmbeddedOrderAdapter::CreateClientOrder() {
    return std::make_unique<TEmbeddedClientOrder>();
}

Boolean TEmbeddedOrderActionManager::TakeOrderAction(TObject*, TCustomClientOrder* Order,
                                                     Integer Action, Boolean) {
    const auto* order = ObjectAs<TEmbeddedClientOrder>(Order);
    if (order == nullptr || Action != OrderAction::Place || !IsComplete(order->Values())) {
        return false;
    }
    FTakenOrders.Add(order->Values());
    return true;
}

} // namespace quorin
