#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Attribute numbers of the position list: the tags of its columns.
namespace PositionAttribute {
inline constexpr Integer SymbolCode = 0;             // text: key of the row
inline constexpr Integer LastPrice = 3;              // price; 0.0 while the feed has none
inline constexpr Integer LongQuantity = 4;           // quantity of a net record above 0
inline constexpr Integer Account = 10;               // text: code
inline constexpr Integer Exchange = 20;              // text: translated name, else the code
inline constexpr Integer SymbolName = 21;            // text: in the language in force
inline constexpr Integer Currency = 23;              // text: translated name, else the code
inline constexpr Integer Expiry = 29;                // text: of a future or option
inline constexpr Integer PreviousClose = 31;         // price
inline constexpr Integer AvailableQuantity = 35;     // quantity that is free to sell
inline constexpr Integer AveragePrice = 42;          // price: average, see PVAvgPriceMode
inline constexpr Integer NetQuantity = 95;           // quantity less what is held short beside it
inline constexpr Integer RealisedPL = 189;           // amount
inline constexpr Integer MarketValue = 405;          // amount in the product's currency
inline constexpr Integer ConvertedMarketValue = 406; // amount in ConvertCurrency
inline constexpr Integer UnrealisedPL = 446;         // amount
inline constexpr Integer ShortQuantity = 470; // quantity of a net record below 0, without its sign
inline constexpr Integer TodayBuyQuantity = 479;    // quantity
inline constexpr Integer TodaySellQuantity = 480;   // quantity
inline constexpr Integer PendingSellQuantity = 482; // quantity in orders that still wait
inline constexpr Integer TotalPL = 607;             // amount: all parts together
inline constexpr Integer CoveredQuantity = 1105;    // quantity
inline constexpr Integer MovedQuantity = 1302;      // quantity deposited less withdrawn
inline constexpr Integer StartQuantity = 9014;      // quantity at the beginning of the day
} // namespace PositionAttribute

} // namespace quorin
