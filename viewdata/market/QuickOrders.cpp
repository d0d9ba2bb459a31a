#include "platform/rtl/ScopedValue.h"
#include "viewdata/frame/OrderActions.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/GlobalChannelManager.h"
#include "viewdata/services/LoginCtrl.h"

#include <algorithm>
#include <vector>

namespace quorin {

namespace {

constexpr Integer AtMarket = 0; // in place of a price field
constexpr Double SmallestLot = 1.0;

// One unit where the item has no lot size.
Double OneLot(const TCustomSubItem& item) {
    return std::max(SmallestLot, item.GetFieldDouble(Field::LotSize));
}

enum class TCopied : Byte { Price, Quantity };

// Columns whose click copies a field: the attribute's own number plus the offset.
struct TCopiedColumns {
    Integer First;
    Integer Last;
    Integer Offset;
    TCopied Kind;
};

namespace A = MarketAttribute;

// clang-format off
constexpr TCopiedColumns CopiedColumns[] = {
    {A::BestBid,          A::LastPrice,        0, TCopied::Price},
    {A::BestBidQuantity,  A::BestBidQuantity,  0, TCopied::Quantity},
    {A::BestAskQuantity,  A::BestAskQuantity,  0, TCopied::Quantity},
    {A::StrikePrice,      A::StrikePrice,      0, TCopied::Price},
    {A::PreviousClose,    A::HighPrice,        0, TCopied::Price},
    {A::LowPrice,         A::LowPrice,         0, TCopied::Price},
    {Field::BidQuantity2, Field::BidQuantity5, 0, TCopied::Quantity},
    {A::BidDepth1,        A::BidDepth1,        Field::BestBidQuantity - A::BidDepth1, TCopied::Quantity},
    {A::BidDepth2,        A::BidDepth5,        Field::BidQuantity2 - A::BidDepth2,    TCopied::Quantity},
    {Field::AskQuantity2, Field::AskQuantity5, 0, TCopied::Quantity},
    {A::AskDepth1,        A::AskDepth1,        Field::BestAskQuantity - A::AskDepth1, TCopied::Quantity},
    {A::AskDepth2,        A::AskDepth5,        Field::AskQuantity2 - A::AskDepth2,    TCopied::Quantity},
    {Field::BidPrice2,    Field::BidPrice5,    0, TCopied::Price},
    {Field::AskPrice2,    Field::AskPrice5,    0, TCopied::Price},
    {A::OpenPrice,        A::OpenPrice,        0, TCopied::Price},
    {A::BidDepth6,        A::BidDepth10,       Field::BidQuantity6 - A::BidDepth6, TCopied::Quantity},
    {A::AskDepth6,        A::AskDepth10,       Field::AskQuantity6 - A::AskDepth6, TCopied::Quantity},
    {Field::BidQuantity6, Field::BidQuantity10, 0, TCopied::Quantity},
    {Field::AskQuantity6, Field::AskQuantity10, 0, TCopied::Quantity},
    {Field::BidPrice6,    Field::BidPrice10,   0, TCopied::Price},
    {Field::AskPrice6,    Field::AskPrice10,   0, TCopied::Price},
};
// clang-format on

// Other columns copy nothing but the symbol.
void CopyField(TCustomClientOrder& order, const TCustomSubItem& item, Integer attribute) {
    for (const TCopiedColumns& columns : CopiedColumns) {
        if (attribute < columns.First || attribute > columns.Last) continue;
        const Double value = item.GetFieldDouble(attribute + columns.Offset);
        if (columns.Kind == TCopied::Price) {
            order.SetPrice(value);
        } else {
            order.SetQuantity(value);
        }
        return;
    }
}

TCustomSubItem* FollowedItem(StringView symbol) {
    return TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/true);
}

} // namespace

Boolean TCustomMarketDataControl::BuyMarketOrder(Integer RecordIndex) {
    return QuickOrder(RecordIndex, OrderSide::Buy, AtMarket);
}

Boolean TCustomMarketDataControl::SellMarketOrder(Integer RecordIndex) {
    return QuickOrder(RecordIndex, OrderSide::Sell, AtMarket);
}

Boolean TCustomMarketDataControl::BuyLastOrder(Integer RecordIndex) {
    return QuickOrder(RecordIndex, OrderSide::Buy, Field::LastPrice);
}

Boolean TCustomMarketDataControl::SellLastOrder(Integer RecordIndex) {
    return QuickOrder(RecordIndex, OrderSide::Sell, Field::LastPrice);
}

Boolean TCustomMarketDataControl::BuyBestAskOrder(Integer RecordIndex) {
    return QuickOrder(RecordIndex, OrderSide::Buy, Field::BestAsk);
}

Boolean TCustomMarketDataControl::SellBestBidOrder(Integer RecordIndex) {
    return QuickOrder(RecordIndex, OrderSide::Sell, Field::BestBid);
}

// An order at the market looks at the item only when it needs the lot size.
Boolean TCustomMarketDataControl::QuickOrder(Integer RecordIndex, Integer side,
                                             Integer priceField) {
    if (!TCustomLoginCtrl::GetInstance()->IsLogin() || FAccount.empty()) return false;
    if (!FDataList.Has(RecordIndex)) return false;
    if (FMyOrder == nullptr || FIsActionPending) return false;
    const TScopedValue pending(FIsActionPending, true);

    const String symbol = FDataList[RecordIndex];
    const Boolean isAtMarket = priceField == AtMarket;
    const TCustomSubItem* item = isAtMarket ? nullptr : FollowedItem(symbol);
    if (!isAtMarket && item == nullptr) return false;

    TCustomClientOrder& order = *FMyOrder;
    order.Clear();
    order.SetSymbol(symbol);
    order.SetAccount(FAccount);
    if (isAtMarket) order.SetPrice(0.0);
    order.SetBuySell(side);
    if (isAtMarket) {
        SetMarketFlag(order);
    } else {
        order.SetPrice(item->GetFieldDouble(priceField));
    }

    if (FAddOrderConfirmation) return ConfirmOrder(order, OrderSource::MarketList, StringView());
    if (isAtMarket) item = FollowedItem(symbol);
    if (item == nullptr) return false;
    order.SetQuantity(OneLot(*item));
    return TakeOrder(order);
}

void TCustomMarketDataControl::CopyPrice(Integer RecordIndex, Integer Attribute) {
    if (!FDataList.Has(RecordIndex) || FMyOrder == nullptr || FIsActionPending) return;
    const TScopedValue pending(FIsActionPending, true);

    const String symbol = FDataList[RecordIndex];
    FMyOrder->Clear();
    FMyOrder->SetSymbol(symbol);
    if (const TCustomSubItem* item = FollowedItem(symbol)) CopyField(*FMyOrder, *item, Attribute);
    CopyToOrderEntry(ChannelMessage::CopyPrice, *FMyOrder, OrderSource::MarketList, GroupID);
}

Boolean TCustomMarketDataControl::AddToFavorite(Integer RecordIndex) {
    if (!FDataList.Has(RecordIndex)) return false;
    const String symbol = FDataList[RecordIndex];
    return TCustomMarketAdapter::GetInstance()->AddFavorite(symbol);
}

Boolean TCustomMarketDataControl::RemoveFavoritePrice(Integer RecordIndex) {
    if (!FDataList.Has(RecordIndex)) return false;
    const String symbol = FDataList[RecordIndex];
    return TCustomMarketAdapter::GetInstance()->RemoveFavorite(symbol);
}

Boolean TCustomMarketDataControl::ClearAllFavoritePrice() {
    TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    const Integer count = market.GetFavoriteCount();
    if (count <= 0) return false;
    std::vector<String> symbols;
    for (Integer index = 0; index < count; ++index) {
        symbols.push_back(market.GetFavoriteSymbol(index));
    }
    market.RemoveFavorites(symbols, count - 1);
    return true;
}

Boolean TCustomMarketDataControl::AddFavoritePrice() {
    TCustomGlobalChannelManager::GetInstance()->SendChannelMessage(ChannelMessage::AddFavoritePrice,
                                                                   nullptr);
    return true;
}

} // namespace quorin
