#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Attribute numbers of the position list: the tags of its columns.
namespace PositionAttribute {
inline constexpr Integer SymbolCode = 0;
inline constexpr Integer LastPrice = 3;
inline constexpr Integer LongQuantity = 4;
inline constexpr Integer Account = 10;
inline constexpr Integer Exchange = 20;
inline constexpr Integer SymbolName = 21;
inline constexpr Integer Currency = 23;
inline constexpr Integer Expiry = 29;
inline constexpr Integer PreviousClose = 31;
inline constexpr Integer AvailableQuantity = 35;
inline constexpr Integer AveragePrice = 42;
inline constexpr Integer NetQuantity = 95;
inline constexpr Integer RealisedPL = 189;
inline constexpr Integer MarketValue = 405;
inline constexpr Integer ConvertedMarketValue = 406;
inline constexpr Integer UnrealisedPL = 446;
inline constexpr Integer ShortQuantity = 470;
inline constexpr Integer TodayBuyQuantity = 479;
inline constexpr Integer TodaySellQuantity = 480;
inline constexpr Integer PendingSellQuantity = 482;
inline constexpr Integer TotalPL = 607;
inline constexpr Integer CoveredQuantity = 1105;
inline constexpr Integer MovedQuantity = 1302; // deposited less withdrawn
inline constexpr Integer StartQuantity = 9014; // at the beginning of the day
} // namespace PositionAttribute

} // namespace quorin
