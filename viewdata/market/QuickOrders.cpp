#include "viewdata/market/MarketDataControl.h"

// Nothing is sent from the market list yet: every order and favourite operation is refused.

namespace quorin {

Boolean TCustomMarketDataControl::AddFavoritePrice() {
    return false;
}

Boolean TCustomMarketDataControl::RemoveFavoritePrice(Integer) {
    return false;
}

Boolean TCustomMarketDataControl::ClearAllFavoritePrice() {
    return false;
}

Boolean TCustomMarketDataControl::BuyMarketOrder(Integer) {
    return false;
}

Boolean TCustomMarketDataControl::SellMarketOrder(Integer) {
    return false;
}

Boolean TCustomMarketDataControl::BuyLastOrder(Integer) {
    return false;
}

Boolean TCustomMarketDataControl::SellLastOrder(Integer) {
    return false;
}

Boolean TCustomMarketDataControl::BuyBestAskOrder(Integer) {
    return false;
}

Boolean TCustomMarketDataControl::SellBestBidOrder(Integer) {
    return false;
}

Boolean TCustomMarketDataControl::AddToFavorite(Integer) {
    return false;
}

void TCustomMarketDataControl::CopyPrice(Integer, Integer) {}

} // namespace quorin
