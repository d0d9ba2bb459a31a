#pragma once

#include "viewdata/market/MarketDataControl.h"
#include "viewdata/position/PositionDataControl.h"

#include <span>

namespace quorin {

// Where the price of a quick order or close comes from.
enum class TActionPrice : Byte { Best, Last, Market };

inline constexpr Integer NoPriceField = 0; // of an order at the market

// The six quick orders of market lists.
struct TQuickOrder {
    StringView Key; // of its text
    Integer Side;   // one of OrderSide
    TActionPrice Price;
    Integer PriceField; // of the live item, or NoPriceField
    Boolean (TCustomMarketDataControl::*Take)(Integer);
};
std::span<const TQuickOrder> QuickOrders();

// The closes of position lists.
struct TQuickClose {
    StringView Key; // of its text
    TActionPrice Price;
    Boolean (TCustomPositionDataControl::*Take)(Integer);
};
std::span<const TQuickClose> QuickCloses();

} // namespace quorin
