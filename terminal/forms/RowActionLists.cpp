#include "platform/rtl/Numbers.h"
#include "terminal/forms/FormsHost.h"
#include "terminal/forms/MarketListForm.h"
#include "terminal/forms/OrderText.h"
#include "terminal/forms/OrdersForm.h"
#include "terminal/forms/PositionForm.h"
#include "terminal/forms/QuickOrders.h"
#include "terminal/forms/RowActions.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/OrderActions.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ConfigKeys.h"
#include "viewdata/services/ConfigManager.h"
#include "viewdata/services/FieldNumbers.h"
#include "viewdata/services/MessageBoxCtrl.h"
#include "viewdata/services/OrderAdapter.h"
#include "viewdata/services/PositionAdapter.h"
#include "viewdata/services/SubscribeAdapter.h"

#include <cmath>

namespace quorin {

namespace {

bool IsSet(StringView key) {
    const TCustomConfigManager& config = *TCustomConfigManager::GetInstance();
    return config.ReadBool(config.GetCurrentSection(), key);
}

// As the control itself reads it for the order.
Double LivePrice(StringView symbol, Integer field) {
    return TCustomSubscribeAdapter::GetInstance()
        ->GetSubItem(symbol, LiveDataType, /*Flag=*/false)
        ->GetFieldDouble(field);
}

String SymbolOf(TBaseDataControl& list, Integer record) {
    return TextOf(list.GetValue(record, PositionAttribute::SymbolCode));
}

// Nil for a bad row.
const TCustomPositionData* PositionOf(TCustomPositionDataControl& list, Integer record) {
    return TCustomPositionAdapter::GetInstance()->GetPosition(
        TextOf(list.GetValue(record, PositionAttribute::Account)), SymbolOf(list, record));
}

Integer ClosingField(TActionPrice price, bool isLong) {
    if (price == TActionPrice::Last) return Field::LastPrice;
    return isLong ? Field::BestBid : Field::BestAsk;
}

std::optional<Double> ClosingPrice(TCustomPositionDataControl& list, Integer record,
                                   TActionPrice price) {
    const Variant net = list.GetValue(record, PositionAttribute::NetQuantity);
    if (price == TActionPrice::Market || !net.IsNumber()) return {};
    return LivePrice(SymbolOf(list, record), ClosingField(price, net.ToDouble() > 0.0));
}

// Twice what is held, the other way round.
Boolean Reverse(TPositionForm& form, Integer record) {
    const TCustomPositionData* position = PositionOf(form.Control(), record);
    TCustomOrderAdapter* orders = TCustomOrderAdapter::GetInstance();
    if (position == nullptr || orders == nullptr) return false;
    if (position->GetSide() != TPositionSide::Net || position->GetQuantity() == 0.0) return false;
    const std::unique_ptr<TCustomClientOrder> order = orders->CreateClientOrder();
    SetMarketFlag(*order);
    order->SetBuySell(position->GetQuantity() > 0.0 ? OrderSide::Sell : OrderSide::Buy);
    order->SetSymbol(position->GetSymbol());
    order->SetAccount(position->GetAccount());
    order->SetQuantity(2.0 * std::fabs(position->GetQuantity()));
    if (!IsSet(ConfigKey::ConfirmationClosePosition)) return TakeOrder(*order);
    return ConfirmOrder(*order, OrderSource::PositionList,
                        InterfaceText(TerminalKey::Res_ReverseQuestion));
}

Boolean Cancel(TOrderDialog& dialog, Int64 number) {
    TOrderDesk* desk = dialog.Host().Desk();
    const TDeskOrder* order = desk == nullptr ? nullptr : desk->FindOrder(number);
    if (order == nullptr || order->State != TOrderState::Working) return false;
    const TOrderValues& values = order->Values;
    const String question =
        FormatText(InterfaceText(TerminalKey::Res_CancelQuestion),
                   {IntegerToText(number), SideText(values.BuySell),
                    QuantityText(order->Remaining(), values.Symbol), SymbolText(values.Symbol)});
    if (IsSet(ConfigKey::ConfirmationPlaceOrd) &&
        dialog.Host().Confirm(question, ConfirmYes) != ConfirmYes) {
        return false;
    }
    return desk->CancelOrder(number);
}

} // namespace

std::vector<TRowAction> MarketActions(TMarketListForm& form) {
    TCustomMarketDataControl& list = form.List();
    std::vector<TRowAction> actions;
    for (const TQuickOrder& order : QuickOrders()) {
        TRowAction action{.Key = order.Key, .Side = order.Side};
        if (order.PriceField != NoPriceField) {
            action.Price = [&list, field = order.PriceField](Integer record) {
                return std::optional(LivePrice(SymbolOf(list, record), field));
            };
        }
        action.Take = [&list, take = order.Take](Integer record, Integer) {
            return (list.*take)(record);
        };
        actions.push_back(std::move(action));
    }
    actions.push_back(
        {.Key = TerminalKey::Res_CopyToTicket, .Take = [&list](Integer record, Integer attribute) {
             list.CopyPrice(record, attribute);
             return true;
         }});
    return actions;
}

std::vector<TRowAction> CloseActions(TCustomPositionDataControl& positions) {
    std::vector<TRowAction> actions;
    for (const TQuickClose& close : QuickCloses()) {
        actions.push_back(
            {.Key = close.Key,
             .Price = [&positions, price = close.Price](
                          Integer record) { return ClosingPrice(positions, record, price); },
             .Take = [&positions, take = close.Take](
                         Integer record, Integer) { return (positions.*take)(record); }});
    }
    actions.push_back(
        {.Key = TerminalKey::Res_CloseAll,
         .Take = [&positions](Integer, Integer) { return positions.CloseAllPositions(); },
         .IsOfRow = false});
    return actions;
}

std::vector<TRowAction> PositionActions(TPositionForm& form) {
    std::vector<TRowAction> actions = CloseActions(form.Control());
    actions.push_back({.Key = TerminalKey::Res_Reverse,
                       .Take = [&form](Integer record, Integer) { return Reverse(form, record); }});
    actions.push_back(
        {.Key = TerminalKey::Res_CopyToTicket,
         .Take = [&form](Integer record, Integer) { return form.Control().CopyOrder(record); }});
    return actions;
}

std::vector<TRowAction> PositionViewActions(TPositionViewDataControl& positions) {
    std::vector<TRowAction> actions = CloseActions(positions);
    actions.push_back(
        {.Key = TerminalKey::Res_CopyToTicket, .Take = [&positions](Integer record, Integer) {
             positions.CopySymbol(record);
             return true;
         }});
    return actions;
}

std::vector<TRowAction> OrderActions(TOrdersForm& form, TOrderDialog& dialog) {
    return {
        {.Key = TerminalKey::Res_CancelOrder, .Take = [&form, &dialog](Integer record, Integer) {
             return Cancel(dialog,
                           form.Control().GetValue(record, OrderAttribute::Number).ToInt64());
         }}};
}

} // namespace quorin
