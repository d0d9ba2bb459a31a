#include "terminal/forms/QuickOrders.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/services/FieldNumbers.h"

namespace quorin {

namespace {

namespace K = TerminalKey;
using TMarket = TCustomMarketDataControl;
using TPositions = TCustomPositionDataControl;

// clang-format off
constexpr TQuickOrder Orders[] = {
    {K::Res_BuyBest,    OrderSide::Buy,  TActionPrice::Best,   Field::BestAsk,   &TMarket::BuyBestAskOrder},
    {K::Res_BuyLast,    OrderSide::Buy,  TActionPrice::Last,   Field::LastPrice, &TMarket::BuyLastOrder},
    {K::Res_BuyMarket,  OrderSide::Buy,  TActionPrice::Market, NoPriceField,     &TMarket::BuyMarketOrder},
    {K::Res_SellBest,   OrderSide::Sell, TActionPrice::Best,   Field::BestBid,   &TMarket::SellBestBidOrder},
    {K::Res_SellLast,   OrderSide::Sell, TActionPrice::Last,   Field::LastPrice, &TMarket::SellLastOrder},
    {K::Res_SellMarket, OrderSide::Sell, TActionPrice::Market, NoPriceField,     &TMarket::SellMarketOrder},
};

constexpr TQuickClose Closes[] = {
    {K::Res_CloseBest,   TActionPrice::Best,   &TPositions::CloseToBest},
    {K::Res_CloseLast,   TActionPrice::Last,   &TPositions::CloseToLast},
    {K::Res_CloseMarket, TActionPrice::Market, &TPositions::CloseToMarket},
};
// clang-format on

} // namespace

std::span<const TQuickOrder> QuickOrders() {
    return Orders;
}

std::span<const TQuickClose> QuickCloses() {
    return Closes;
}

} // namespace quorin
