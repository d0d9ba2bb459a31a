#include "terminal/desktop/DesktopHost.h"

#include "terminal/desktop/CloseAllDialog.h"
#include "terminal/desktop/FreshKeys.h"
#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace quorin {

namespace {

constexpr const char* Title = "quorin";

QPointer<QMessageBox> MakeBox(QWidget* window, QMessageBox::Icon icon, StringView text) {
    QPointer<QMessageBox> box =
        new QMessageBox(icon, QLatin1String(Title), ToQt(text), QMessageBox::NoButton, window);
    box->setTextFormat(Qt::PlainText);
    return box;
}

} // namespace

void TDesktopHost::ShowMessage(StringView text) {
    Messages().Add(TMessageKind::Message, text);
    const QPointer<QMessageBox> box = MakeBox(FWindow, QMessageBox::Information, text);
    box->addButton(ToQt(InterfaceText(ResourceKey::Res_OK_Btn)), QMessageBox::AcceptRole);
    const TFreshKeys fresh;
    box->exec();
    delete box; // unless its window has gone
}

// A box whose window has gone was not answered.
bool TDesktopHost::Ask(StringView text, bool isYesFirst) {
    const QPointer<QMessageBox> box = MakeBox(FWindow, QMessageBox::Question, text);
    QPushButton* yes =
        box->addButton(ToQt(InterfaceText(TerminalKey::Res_Yes)), QMessageBox::YesRole);
    QPushButton* no = box->addButton(ToQt(InterfaceText(TerminalKey::Res_No)), QMessageBox::NoRole);
    box->setDefaultButton(isYesFirst ? yes : no);
    box->setEscapeButton(no);
    const TFreshKeys fresh;
    box->exec();
    const bool isYes = box && box->clickedButton() == yes;
    delete box;
    return isYes;
}

bool TDesktopHost::ShowCloseAll(TCloseAllForm& list, StringView question) {
    const QPointer<TCloseAllDialog> dialog = new TCloseAllDialog(list, ToQt(question), FWindow);
    const TFreshKeys fresh;
    const bool isYes = dialog->exec() == QDialog::Accepted;
    delete dialog;
    return isYes;
}

} // namespace quorin
