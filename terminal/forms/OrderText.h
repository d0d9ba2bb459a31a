#pragma once

#include "embedded/OrderService.h"

namespace quorin {

// Texts about orders in the language in force.

// "Buy" or "Sell"; empty for neither.
String SideText(Integer side);
// The quantity as quantities of the symbol are shown.
String QuantityText(Double quantity, StringView symbol);
// A price of the symbol as its prices are shown.
String PriceText(Double price, StringView symbol);
// The price as prices of the symbol are shown; of an order at the market a word for it.
String OrderPriceText(const TOrderValues& order);
// A price that was worked out, as those of the symbol are shown.
String AveragePriceText(Double price, StringView symbol);
// Why an order was refused or cancelled; empty for no reason.
String ReasonText(TOrderReason reason);
// What has become of an order: its number and state, and why where there is a reason.
String OutcomeText(const TDeskOrder& order);
// The symbol with its name.
String SymbolText(StringView symbol);

// Units in one lot of the symbol, at least 1.
Double LotOf(StringView symbol);

// Account, side, quantity, symbol and price of an order as a question. `isOneLot` says that the
// quantity is one lot because nobody has chosen one.
String OrderQuestion(const TOrderValues& order, bool isOneLot);

} // namespace quorin
