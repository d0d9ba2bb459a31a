#include "terminal/forms/OrderText.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/Formatter.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Double SmallestLot = 1.0;

} // namespace

String SideText(Integer side) {
    switch (side) {
    case OrderSide::Buy: return InterfaceText(TerminalKey::Res_Buy);
    case OrderSide::Sell: return InterfaceText(TerminalKey::Res_Sell);
    default: return {};
    }
}

String QuantityText(Double quantity, StringView symbol) {
    return TCustomFormatter::GetInstance()->FormatValue(quantity, DisplayDataType::Quantity, symbol,
                                                        /*Flag=*/true, nullptr);
}

String PriceText(Double price, StringView symbol) {
    return TCustomFormatter::GetInstance()->FormatValue(price, DisplayDataType::MarketPrice, symbol,
                                                        /*Flag=*/true, nullptr);
}

String OrderPriceText(const TOrderValues& order) {
    if (order.IsMarket()) return InterfaceText(TerminalKey::Res_AtMarket);
    return PriceText(order.Price, order.Symbol);
}

String AveragePriceText(Double price, StringView symbol) {
    return TCustomFormatter::GetInstance()->FormatValue(price, DisplayDataType::AveragePrice,
                                                        symbol,
                                                        /*Flag=*/true, nullptr);
}

String ReasonText(TOrderReason reason) {
    return reason == TOrderReason::None ? String() : InterfaceText(ReasonKey(reason));
}

String OutcomeText(const TDeskOrder& order) {
    String state = InterfaceText(OrderStateKey(order.State));
    if (order.Reason != TOrderReason::None) state += u", " + ReasonText(order.Reason);
    return FormatText(InterfaceText(TerminalKey::Res_OrderOutcome),
                      {IntegerToText(order.Number), state});
}

String SymbolText(StringView symbol) {
    const String name = SymbolName(symbol);
    return name == symbol ? name : String(symbol) + u" " + name;
}

Double LotOf(StringView symbol) {
    const TCustomSubItem* item =
        TCustomSubscribeAdapter::GetInstance()->GetSubItem(symbol, LiveDataType, /*Flag=*/true);
    return item == nullptr ? SmallestLot
                           : std::max(SmallestLot, item->GetFieldDouble(Field::LotSize));
}

String OrderQuestion(const TOrderValues& order, bool isOneLot) {
    String quantity = QuantityText(order.Quantity, order.Symbol);
    if (isOneLot) quantity = FormatText(InterfaceText(TerminalKey::Res_OneLot), {quantity});
    return FormatText(InterfaceText(TerminalKey::Res_OrderQuestion),
                      {order.Account, SideText(order.BuySell), quantity, SymbolText(order.Symbol),
                       OrderPriceText(order)});
}

} // namespace quorin
