#include "terminal/forms/OrderDialog.h"

#include "platform/rtl/ScopedValue.h"
#include "platform/rtl/Text.h"
#include "terminal/forms/CloseAllForm.h"
#include "terminal/forms/FormsHost.h"
#include "terminal/forms/OrderText.h"
#include "terminal/forms/TerminalKeys.h"
#include "terminal/forms/TicketForm.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/MessageBoxCtrl.h"
#include "viewdata/services/OrderActionManager.h"

#include <utility>

namespace quorin {

Boolean TOrderDialog::Answer(Integer number, Pointer data) {
    if (number == ChannelMessage::AddFavoritePrice) {
        AddFavorite();
        return true;
    }
    if (data == nullptr) return false;
    switch (number) {
    case ChannelMessage::CopyOrder:
    case ChannelMessage::CopyPrice:
        Copy(number, *static_cast<const TCopyOrderRecord*>(data));
        return true;
    case ChannelMessage::TakeOrderAction:
        TakeOrder(*static_cast<TOrderTakeActionRecord*>(data));
        return true;
    case ChannelMessage::CloseAllPositions:
        CloseAll(*static_cast<TOrderTakeActionRecord*>(data));
        return true;
    default: return false;
    }
}

Boolean TOrderDialog::TakeAsShown(const TShownPrice& shown, const std::function<Boolean()>& take) {
    const TScopedValue expected(FShown, std::optional(shown));
    return take();
}

bool TOrderDialog::Ask(StringView message, StringView question) {
    const String text =
        message.empty() ? String(question) : String(message) + u"\n" + String(question);
    return FHost.Confirm(text, ConfirmYes) == ConfirmYes;
}

// Empty where the price that was shown still holds.
String TOrderDialog::PriceMoveText(const TOrderValues& order) {
    if (!FShown.has_value() || FShown->Symbol != order.Symbol || order.IsMarket()) return {};
    const String now = OrderPriceText(order);
    if (now == FShown->Text) return {};
    return FormatText(InterfaceText(TerminalKey::Res_PriceMoved), {FShown->Text, now});
}

// An order without a quantity comes from a quick order that wants to be confirmed.
void TOrderDialog::TakeOrder(TOrderTakeActionRecord& record) {
    auto* order = ObjectAs<TEmbeddedClientOrder>(record.Order);
    TCustomOrderActionManager* manager = TCustomOrderActionManager::GetInstance();
    if (order == nullptr || manager == nullptr) return;
    const bool isOneLot = !(order->GetQuantity() > 0.0);
    if (isOneLot) order->SetQuantity(LotOf(order->Values().Symbol));
    String question = OrderQuestion(order->Values(), isOneLot);
    if (const String move = PriceMoveText(order->Values()); !move.empty()) {
        question = move + u"\n" + question;
    }
    if (!Ask(record.Message, question)) return;
    record.Result = manager->TakeOrderAction(nullptr, order, record.Action, /*Flag=*/true);
}

// With some positions left out the list that asked must not go on: it would close them all.
void TOrderDialog::CloseAll(TOrderTakeActionRecord& record) {
    std::unique_ptr<TObject> received(std::exchange(record.Order, nullptr));
    auto* list = ObjectAs<TCustomPositionDataControl>(received.get());
    if (list == nullptr) return;
    static_cast<void>(received.release());
    TCloseAllForm form{std::unique_ptr<TCustomPositionDataControl>(list)};
    const String question = record.Message.empty()
                                ? InterfaceText(ResourceKey::Res_BatchConf_ClosePos)
                                : record.Message;
    if (!FHost.AskCloseAll(form, question)) return;
    record.Result = form.AreAllTicked();
    if (!record.Result) form.CloseTicked();
}

void TOrderDialog::Copy(Integer number, const TCopyOrderRecord& record) {
    const auto* order = ObjectAs<TEmbeddedClientOrder>(record.Order);
    if (order == nullptr) return;
    if (number == ChannelMessage::CopyOrder) {
        FEntry.TakeOrder(order->Values());
    } else {
        FEntry.TakePrice(order->Values());
    }
    if (TTicketForm* ticket = TTicketForm::ForCopies(record.GroupID)) {
        ticket->TakeCopy(order->Values());
    }
}

// Order entry is a ticket, where one is open.
void TOrderDialog::AddFavorite() {
    const TTicketForm* ticket = TTicketForm::ForCopies({});
    const String symbol =
        ticket == nullptr || ticket->Symbol().empty() ? FEntry.Values().Symbol : ticket->Symbol();
    if (symbol.empty()) {
        FHost.ShowMessage(InterfaceText(TerminalKey::Res_NoSymbolToAdd));
        return;
    }
    const String question =
        FormatText(InterfaceText(TerminalKey::Res_AddFavoriteQuestion), {SymbolText(symbol)});
    if (Ask({}, question)) TCustomMarketAdapter::GetInstance()->AddFavorite(symbol);
}

} // namespace quorin
