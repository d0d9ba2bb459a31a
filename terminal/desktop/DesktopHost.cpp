#include "terminal/desktop/DesktopHost.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/OrderText.h"
#include "viewdata/services/ChannelMessages.h"
#include "viewdata/services/MessageBoxCtrl.h"
#include "viewdata/services/OrderActionManager.h"
#include "viewdata/services/OrderRecords.h"

#include <QMessageBox>

namespace quorin {

namespace {

constexpr Integer AnswerNo = 0;
static_assert(AnswerNo != ConfirmYes);
constexpr const char* Title = "quorin";

} // namespace

void TDesktopHost::ShowMessage(StringView text) {
    QMessageBox::information(FWindow, QLatin1String(Title), ToQt(text));
}

Integer TDesktopHost::Confirm(StringView text, Integer defaultAnswer) {
    const auto answer = QMessageBox::question(
        FWindow, QLatin1String(Title), ToQt(text), QMessageBox::Yes | QMessageBox::No,
        defaultAnswer == ConfirmYes ? QMessageBox::Yes : QMessageBox::No);
    return answer == QMessageBox::Yes ? ConfirmYes : AnswerNo;
}

Boolean TDesktopHost::ChannelMessage(Integer number, Pointer data) {
    if (number == ChannelMessage::TakeOrderAction && data != nullptr) {
        TakeOrder(data);
        return true;
    }
    return FFieldLists != nullptr && FFieldLists->Answer(number, data);
}

void TDesktopHost::TakeOrder(Pointer data) {
    auto& record = *static_cast<TOrderTakeActionRecord*>(data);
    auto* order = ObjectAs<TEmbeddedClientOrder>(record.Order);
    TCustomOrderActionManager* manager = TCustomOrderActionManager::GetInstance();
    if (order == nullptr || manager == nullptr) return;
    String question = OrderQuestion(order->Values(), /*isOneLot=*/false);
    if (!record.Message.empty()) question = record.Message + u"\n" + question;
    if (Confirm(question, ConfirmYes) != ConfirmYes) return;
    record.Result = manager->TakeOrderAction(nullptr, order, record.Action, /*Flag=*/true);
}

} // namespace quorin
