#pragma once

#include "viewdata/position/PositionAttributes.h"

namespace quorin {

// Attribute numbers that the position view adds to those of the position list, and those that it
// answers in its own way.
namespace PositionViewAttribute {
inline constexpr Integer Side = 11;
inline constexpr Integer AveragePrice = PositionAttribute::AveragePrice;
inline constexpr Integer PrincipalType = 46;
inline constexpr Integer TotalBought = 51;
inline constexpr Integer TotalSold = 61;
inline constexpr Integer AverageBuyPrice = 81;
inline constexpr Integer AverageSellPrice = 91;
inline constexpr Integer NetQuantity = PositionAttribute::NetQuantity;
inline constexpr Integer HeldShort = 101; // beside the quantity
inline constexpr Integer RealisedPL = PositionAttribute::RealisedPL;
inline constexpr Integer MarginRatio = 408;
inline constexpr Integer UnrealisedPL = PositionAttribute::UnrealisedPL;
inline constexpr Integer TodayBuyQuantity = PositionAttribute::TodayBuyQuantity;
inline constexpr Integer TodaySellQuantity = PositionAttribute::TodaySellQuantity;
inline constexpr Integer PendingBuyQuantity = 481;
inline constexpr Integer Deposited = 483;
inline constexpr Integer Withdrawn = 484;
inline constexpr Integer ContractSize = 504;
inline constexpr Integer TotalPL = PositionAttribute::TotalPL;
inline constexpr Integer TodayNetAmount = 617;
inline constexpr Integer TodayNetQuantity = 618;
inline constexpr Integer ConvertedAcceptValue = 896;
inline constexpr Integer AcceptValue = 997; // in the product's currency
inline constexpr Integer CoveredQuantity = PositionAttribute::CoveredQuantity;
inline constexpr Integer MovedQuantity = PositionAttribute::MovedQuantity;
inline constexpr Integer TodayAverageBuyPrice = 3101;
inline constexpr Integer TodayAverageSellPrice = 3102;
inline constexpr Integer TodayBuyAmount = 3116;
inline constexpr Integer TodaySellAmount = 3119;
inline constexpr Integer Custody = 10000; // with the sign reversed
inline constexpr Integer NetWithCustody = 10001;
inline constexpr Integer LeftFromStart = 10002; // of the quantity at the beginning of the day
inline constexpr Integer TodayOpened = 10003;
inline constexpr Integer TodayClosed = 10004;
} // namespace PositionViewAttribute

} // namespace quorin
