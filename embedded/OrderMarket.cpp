#include "embedded/OrderMarket.h"

#include "embedded/SubscribeService.h"

namespace quorin {

void TQuoteOrderMarket::Take(const TOrderWish& wish, TList<TOrderTrade>& trades) {
    const TEmbeddedSubItem* item = FItems.FindItem(wish.Symbol);
    const Integer fieldNo = wish.IsBuy ? Field::BestAsk : Field::BestBid;
    if (item == nullptr || item->GetStatus() == ItemStatus::NoData || !item->HasField(fieldNo)) {
        return;
    }
    const Double price = item->GetFieldDouble(fieldNo);
    if (!(price > 0.0) && !MayBeNegative(wish.Symbol)) return;
    const bool isGoodEnough =
        wish.AtAnyPrice || (wish.IsBuy ? price <= wish.Price : price >= wish.Price);
    if (isGoodEnough) trades.Add({price, wish.Quantity});
}

} // namespace quorin
