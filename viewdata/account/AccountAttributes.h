#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Columns of the account information tree: the tags that its view gives them.
namespace AccountTreeColumn {
inline constexpr Integer Value = 3;    // the figure
inline constexpr Integer Caption = 21; // its name, or the currency of the row
} // namespace AccountTreeColumn

// Attribute numbers of the account views: rows of the information tree, columns of the cash tree.
// Figures without a name of their own are called as the operation of the record that gives them.
namespace AccountAttribute {
inline constexpr Integer AvailableCash = 4;   // amount: cash less what is held
inline constexpr Integer AccountCode = 10;    // text
inline constexpr Integer AccountTag = 13;     // text: short mark
inline constexpr Integer HolderName = 21;     // text
inline constexpr Integer Currency = 23;       // text: translated name, else the code
inline constexpr Integer CurrencyRatio = 104; // worth of one unit in the base currency
inline constexpr Integer Value155 = 155;      // amount; embedded: of buy orders that wait
inline constexpr Integer Value156 = 156;      // amount; embedded: of sell orders that wait
inline constexpr Integer Value185 = 185;      // amount; embedded: bought today
inline constexpr Integer Value186 = 186;      // amount; embedded: sold today
inline constexpr Integer RealisedPL = 189;    // amount: the total less what is not realised
inline constexpr Integer MarketValue = 445;   // amount: of all positions
inline constexpr Integer UnrealisedPL = 446;  // amount
inline constexpr Integer Value604 = 604;      // amount; embedded: initial margin
inline constexpr Integer Value606 = 606;      // amount; embedded: maintenance margin
inline constexpr Integer TotalPL = 607;       // amount
inline constexpr Integer HeldCash = 990;      // amount that orders hold
inline constexpr Integer Cash = 991;          // amount
inline constexpr Integer Shortfall = 996;     // amount, never above 0
inline constexpr Integer Value1205 = 1205;    // amount; embedded: worth of positions as margin
inline constexpr Integer Value1502 = 1502;    // amount; embedded: credit limit
inline constexpr Integer Value1503 = 1503;    // amount; embedded: loan
inline constexpr Integer Value9018 = 9018;    // amount: A less B; embedded: buying power
inline constexpr Integer Value9028 = 9028;    // amount; embedded: net assets
} // namespace AccountAttribute

} // namespace quorin
