#pragma once

#include "viewdata/position/PositionAttributes.h"

namespace quorin {

// Attribute numbers that the position view adds to those of the position list, and those that it
// answers in its own way.
namespace PositionViewAttribute {
inline constexpr Integer Side = 11; // text: long or short; empty for a net record
inline constexpr Integer AveragePrice =
    PositionAttribute::AveragePrice;            // price: average cost of a sided record
inline constexpr Integer PrincipalType = 46;    // text: the account's, for sided records
inline constexpr Integer TotalBought = 51;      // quantity: held long in the morning and bought
inline constexpr Integer TotalSold = 61;        // quantity: held short in the morning and sold
inline constexpr Integer AverageBuyPrice = 81;  // price
inline constexpr Integer AverageSellPrice = 91; // price
inline constexpr Integer NetQuantity = PositionAttribute::NetQuantity; // as in the position list
inline constexpr Integer HeldShort = 101; // quantity held short beside the quantity
inline constexpr Integer RealisedPL =
    PositionAttribute::RealisedPL;          // amount; nothing for sided records
inline constexpr Integer MarginRatio = 408; // raw 0.6, shown as percent
inline constexpr Integer UnrealisedPL =
    PositionAttribute::UnrealisedPL; // amount; nothing for sided records
inline constexpr Integer TodayBuyQuantity = PositionAttribute::TodayBuyQuantity;   // quantity
inline constexpr Integer TodaySellQuantity = PositionAttribute::TodaySellQuantity; // quantity
inline constexpr Integer PendingBuyQuantity = 481;             // quantity in orders that still wait
inline constexpr Integer Deposited = 483;                      // quantity
inline constexpr Integer Withdrawn = 484;                      // quantity
inline constexpr Integer ContractSize = 504;                   // units of a contract
inline constexpr Integer TotalPL = PositionAttribute::TotalPL; // amount: of a sided record GetPL
inline constexpr Integer TodayNetAmount = 617;                 // amount bought less sold
inline constexpr Integer TodayNetQuantity = 618;               // quantity bought less sold
inline constexpr Integer ConvertedAcceptValue = 896;           // amount in ConvertCurrency
inline constexpr Integer AcceptValue = 997; // amount: worth as margin, in the product's currency
inline constexpr Integer CoveredQuantity = PositionAttribute::CoveredQuantity; // quantity
inline constexpr Integer MovedQuantity =
    PositionAttribute::MovedQuantity;                  // quantity deposited less withdrawn
inline constexpr Integer TodayAverageBuyPrice = 3101;  // price
inline constexpr Integer TodayAverageSellPrice = 3102; // price
inline constexpr Integer TodayBuyAmount = 3116;        // amount
inline constexpr Integer TodaySellAmount = 3119;       // amount
inline constexpr Integer Custody = 10000;              // quantity with the sign reversed
inline constexpr Integer NetWithCustody = 10001;       // quantity
inline constexpr Integer LeftFromStart = 10002; // quantity left of that at the beginning of the day
inline constexpr Integer TodayOpened = 10003;   // quantity; nothing for a net record
inline constexpr Integer TodayClosed = 10004;   // quantity; nothing for a net record
} // namespace PositionViewAttribute

} // namespace quorin
