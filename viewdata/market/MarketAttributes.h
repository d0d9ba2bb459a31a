#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Attribute numbers of the market view: the tags of its columns. Custom columns follow from
// FirstCustomColumn up.
namespace MarketAttribute {
inline constexpr Integer SymbolCode = 0;
inline constexpr Integer BestBid = 1;
inline constexpr Integer BestAsk = 2;
inline constexpr Integer LastPrice = 3;
inline constexpr Integer LongPosition = 4;
inline constexpr Integer MarketState = 5;
inline constexpr Integer BestBidQuantity = 16;
inline constexpr Integer Volume = 17;
inline constexpr Integer BestAskQuantity = 19;
inline constexpr Integer Exchange = 20;
inline constexpr Integer SymbolName = 21;
inline constexpr Integer Currency = 23;
inline constexpr Integer StrikePrice = 27;
inline constexpr Integer CallPut = 28;
inline constexpr Integer Expiry = 29;
inline constexpr Integer PreviousClose = 31;
inline constexpr Integer HighPrice = 32;
inline constexpr Integer Remark = 33;
inline constexpr Integer LowPrice = 37;
inline constexpr Integer Change = 48;
// Further columns of the levels, each of which stands for the quantity of its level.
inline constexpr Integer BidDepth1 = 55;
inline constexpr Integer BidDepth2 = 56;
inline constexpr Integer BidDepth5 = 59;
inline constexpr Integer AskDepth1 = 65;
inline constexpr Integer AskDepth2 = 66;
inline constexpr Integer AskDepth5 = 69;
inline constexpr Integer ChangePercent = 130;
inline constexpr Integer OpenPrice = 133;
inline constexpr Integer SeriesName = 141;
inline constexpr Integer ShortPosition = 470;
inline constexpr Integer RequiredMargin = 604;
inline constexpr Integer BidDepth6 = 3136;
inline constexpr Integer BidDepth10 = 3140;
inline constexpr Integer AskDepth6 = 3146;
inline constexpr Integer AskDepth10 = 3150;
} // namespace MarketAttribute

} // namespace quorin
