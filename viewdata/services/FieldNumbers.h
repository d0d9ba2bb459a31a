#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Numbers of the fields of a live item (TCustomSubItem). Every field reads as Double and as text;
// those marked "text" mean something as text only. Levels count from the best quote, level 1.
namespace Field {
inline constexpr Integer BestBid = 1;   // price of level 1
inline constexpr Integer BestAsk = 2;   // price of level 1
inline constexpr Integer LastPrice = 3; // price of the latest trade

inline constexpr Integer BestBidQuantity = 16; // quantity of level 1
inline constexpr Integer Volume = 17;          // quantity traded today
inline constexpr Integer BestAskQuantity = 19; // quantity of level 1

inline constexpr Integer Exchange = 20;    // text: code
inline constexpr Integer ProductType = 22; // text: whole number, see ProductType in MarketRecords.h
inline constexpr Integer Currency = 23;    // text: code
inline constexpr Integer LotSize = 24;     // units of one lot
inline constexpr Integer Underlyer = 26;   // text: symbol code
inline constexpr Integer StrikePrice = 27; // price; of an option
inline constexpr Integer CallPut = 28; // text: begins with 1, 6, C for a call; 2, 7, P for a put
inline constexpr Integer Expiry = 29;  // text: month or day of expiry

inline constexpr Integer PreviousClose = 31; // the reference of price changes as well
inline constexpr Integer HighPrice = 32;     // highest price today
inline constexpr Integer Remark = 33;        // text: free
inline constexpr Integer LowPrice = 37;      // lowest price today

// Quantities of levels 2 to 5.
inline constexpr Integer BidQuantity2 = 51;
inline constexpr Integer BidQuantity3 = 52;
inline constexpr Integer BidQuantity4 = 53;
inline constexpr Integer BidQuantity5 = 54;
inline constexpr Integer AskQuantity2 = 61;
inline constexpr Integer AskQuantity3 = 62;
inline constexpr Integer AskQuantity4 = 63;
inline constexpr Integer AskQuantity5 = 64;

inline constexpr Integer SpreadCode = 73; // text: code of the tick table

// Prices of levels 2 to 5.
inline constexpr Integer BidPrice2 = 81;
inline constexpr Integer BidPrice3 = 82;
inline constexpr Integer BidPrice4 = 83;
inline constexpr Integer BidPrice5 = 84;
inline constexpr Integer AskPrice2 = 91;
inline constexpr Integer AskPrice3 = 92;
inline constexpr Integer AskPrice4 = 93;
inline constexpr Integer AskPrice5 = 94;

// The five latest trades, one line of text each, the newest in the last field.
inline constexpr Integer OldestTrade = 110; // text: first of the five
inline constexpr Integer NewestTrade = 114; // text: last of the five

inline constexpr Integer OpenPrice = 133;      // first price today
inline constexpr Integer LastTradingDay = 134; // text: day
inline constexpr Integer Series = 141;         // text: code
inline constexpr Integer MarketState = 143;    // text: key into the table of market states

// Margin figures of an item whose key begins with SpanKeyPrefix; both ends belong to the range.
inline constexpr Integer FirstMargin = 200; // amount
inline constexpr Integer LastMargin = 215;  // amount

inline constexpr Integer ContractSize = 504;        // units of one contract
inline constexpr Integer TickSize = 507;            // text: smallest price step
inline constexpr Integer SettlementDay = 540;       // text: day
inline constexpr Integer DisplayRatio = 1504;       // text: what a price field multiplies by
inline constexpr Integer FractionalQuantity = 1508; // text: 1 allows fractions of a unit

// Quantities and prices of levels 6 to 10.
inline constexpr Integer BidQuantity6 = 3155;
inline constexpr Integer BidQuantity7 = 3156;
inline constexpr Integer BidQuantity8 = 3157;
inline constexpr Integer BidQuantity9 = 3158;
inline constexpr Integer BidQuantity10 = 3159;
inline constexpr Integer AskQuantity6 = 3165;
inline constexpr Integer AskQuantity7 = 3166;
inline constexpr Integer AskQuantity8 = 3167;
inline constexpr Integer AskQuantity9 = 3168;
inline constexpr Integer AskQuantity10 = 3169;
inline constexpr Integer BidPrice6 = 3180;
inline constexpr Integer BidPrice7 = 3181;
inline constexpr Integer BidPrice8 = 3182;
inline constexpr Integer BidPrice9 = 3183;
inline constexpr Integer BidPrice10 = 3184;
inline constexpr Integer AskPrice6 = 3190;
inline constexpr Integer AskPrice7 = 3191;
inline constexpr Integer AskPrice8 = 3192;
inline constexpr Integer AskPrice9 = 3193;
inline constexpr Integer AskPrice10 = 3194;
} // namespace Field

// The data type under which every live item is asked for.
inline constexpr StringView LiveDataType = u"PRCDDS";

// Begins the key of an item that carries margin figures; a symbol or series code follows.
inline constexpr StringView SpanKeyPrefix = u"SPAN_";

} // namespace quorin
