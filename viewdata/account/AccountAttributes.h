#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Columns of the account information tree: the tags that its view gives them.
namespace AccountTreeColumn {
inline constexpr Integer Value = 3;
inline constexpr Integer Caption = 21;
} // namespace AccountTreeColumn

// Attribute numbers of the account views: rows of the information tree, columns of the cash tree.
// Figures without a name of their own are called as the operation of the record that gives them.
namespace AccountAttribute {
inline constexpr Integer AvailableCash = 4; // cash less what is held
inline constexpr Integer AccountCode = 10;
inline constexpr Integer AccountTag = 13;
inline constexpr Integer HolderName = 21;
inline constexpr Integer Currency = 23;
inline constexpr Integer CurrencyRatio = 104;
inline constexpr Integer Value155 = 155;
inline constexpr Integer Value156 = 156;
inline constexpr Integer Value185 = 185;
inline constexpr Integer Value186 = 186;
inline constexpr Integer RealisedPL = 189; // the total less what is not realised
inline constexpr Integer MarketValue = 445;
inline constexpr Integer UnrealisedPL = 446;
inline constexpr Integer Value604 = 604;
inline constexpr Integer Value606 = 606;
inline constexpr Integer TotalPL = 607;
inline constexpr Integer HeldCash = 990;
inline constexpr Integer Cash = 991;
inline constexpr Integer Shortfall = 996; // never above 0
inline constexpr Integer Value1205 = 1205;
inline constexpr Integer Value1502 = 1502;
inline constexpr Integer Value1503 = 1503;
inline constexpr Integer Value9018 = 9018; // A less B
inline constexpr Integer Value9028 = 9028;
} // namespace AccountAttribute

} // namespace quorin
