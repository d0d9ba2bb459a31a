#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Attribute numbers of the market view: the tags of its columns. Custom columns follow from
// FirstCustomColumn up.
namespace MarketAttribute {
inline constexpr Integer SymbolCode = 0;       // text: key of the row
inline constexpr Integer BestBid = 1;          // price
inline constexpr Integer BestAsk = 2;          // price
inline constexpr Integer LastPrice = 3;        // price
inline constexpr Integer LongPosition = 4;     // quantity held long by the account; 0.0 for none
inline constexpr Integer MarketState = 5;      // text: state of the symbol in words
inline constexpr Integer BestBidQuantity = 16; // quantity
inline constexpr Integer Volume = 17;          // quantity traded today
inline constexpr Integer BestAskQuantity = 19; // quantity
inline constexpr Integer Exchange = 20;        // text: translated name, else the code
inline constexpr Integer SymbolName = 21;      // text: in the language in force
inline constexpr Integer Currency = 23;        // text: translated name, else the code
inline constexpr Integer StrikePrice = 27;     // price; shown for options alone
inline constexpr Integer CallPut = 28;         // text: call or put in words
inline constexpr Integer Expiry = 29;          // text: as the feed writes it
inline constexpr Integer PreviousClose = 31;   // price
inline constexpr Integer HighPrice = 32;       // price: highest today
inline constexpr Integer Remark = 33;          // text: free
inline constexpr Integer LowPrice = 37;        // price: lowest today
inline constexpr Integer Change = 48;          // price: last less previous close
// Further columns of the levels: no cells of their own, but a click on one copies the quantity of
// its level, see CopyPrice.
inline constexpr Integer BidDepth1 = 55;
inline constexpr Integer BidDepth2 = 56;
inline constexpr Integer BidDepth5 = 59;
inline constexpr Integer AskDepth1 = 65;
inline constexpr Integer AskDepth2 = 66;
inline constexpr Integer AskDepth5 = 69;
inline constexpr Integer ChangePercent = 130;  // percent: 2.5 for 2.5 %
inline constexpr Integer OpenPrice = 133;      // price: first today
inline constexpr Integer SeriesName = 141;     // text: name of the series, else its code
inline constexpr Integer ShortPosition = 470;  // quantity held short by the account; 0.0 for none
inline constexpr Integer RequiredMargin = 604; // amount that one contract requires
inline constexpr Integer BidDepth6 = 3136;
inline constexpr Integer BidDepth10 = 3140;
inline constexpr Integer AskDepth6 = 3146;
inline constexpr Integer AskDepth10 = 3150;
} // namespace MarketAttribute

} // namespace quorin
