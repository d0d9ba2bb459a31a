#include "terminal/forms/OrderEntry.h"

#include "platform/rtl/Text.h"
#include "terminal/forms/ListForm.h"
#include "terminal/forms/OrderText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

String OrDash(String text) {
    return text.empty() ? String(NothingToShow) : text;
}

} // namespace

void TOrderEntry::TakeOrder(const TOrderValues& order) {
    FValues = order;
    FHasSide = true;
}

void TOrderEntry::TakePrice(const TOrderValues& order) {
    if (order.Symbol != FValues.Symbol) {
        FValues = TOrderValues();
        FHasSide = false;
    }
    FValues.Symbol = order.Symbol;
    if (order.Price != 0.0) FValues.Price = order.Price; // exactly: 0.0 is no price
    if (order.Quantity > 0.0) FValues.Quantity = order.Quantity;
}

String TOrderEntry::Text() const {
    if (FValues.Symbol.empty()) return {};
    const bool hasPrice = FValues.Price != 0.0;
    const bool hasQuantity = FValues.Quantity > 0.0;
    return FormatText(
        InterfaceText(TerminalKey::Res_OrderEntry),
        {OrDash(FValues.Account), OrDash(FHasSide ? SideText(FValues.BuySell) : String()),
         OrDash(hasQuantity ? QuantityText(FValues.Quantity, FValues.Symbol) : String()),
         SymbolText(FValues.Symbol), OrDash(hasPrice ? OrderPriceText(FValues) : String())});
}

} // namespace quorin
