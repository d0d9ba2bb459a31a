#include "terminal/desktop/DesktopHost.h"

#include "terminal/desktop/CloseAllDialog.h"
#include "terminal/desktop/FreshKeys.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/ViewDialogSkins.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ChannelMessages.h"

#include <QFileDialog>
#include <QFileInfo>
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

void ChooseColumns(const TCustomColumnRecord& asked, QWidget* window) {
    const QPointer<TColumnChooser> dialog = new TColumnChooser(asked, window);
    const TFreshKeys fresh;
    const auto apply = [&asked](TCustomColumnRecord choice) {
        if (asked.Callback) asked.Callback(nullptr, Pointer(&choice));
    };
    QObject::connect(dialog, &TColumnChooser::Changed, dialog, [&] { apply(dialog->Choice()); });
    if (dialog->exec() != QDialog::Accepted) apply(asked);
    delete dialog;
}

void AskFilter(TCustomFilterRecord& filter, QWidget* window) {
    const QPointer<TFilterDialog> dialog = new TFilterDialog(filter, window);
    const TFreshKeys fresh;
    if (dialog->exec() == QDialog::Accepted && dialog) dialog->ReadInto(filter);
    delete dialog;
}

} // namespace

TDesktopHost::TDesktopHost() {
    TSaveDialogHost::Install(this);
    TcxExportLinks::Install(&FLinks);
}

TDesktopHost::~TDesktopHost() {
    TcxExportLinks::Install(nullptr);
    TSaveDialogHost::Install(nullptr);
}

Boolean TDesktopHost::ChannelMessage(Integer number, Pointer data) {
    if (data != nullptr && number == quorin::ChannelMessage::CustomColumn) {
        // The record may change while the dialog is open.
        const TCustomColumnRecord asked = *static_cast<const TCustomColumnRecord*>(data);
        ChooseColumns(asked, FWindow);
        return true;
    }
    if (data != nullptr && number == quorin::ChannelMessage::CustomFilter) {
        AskFilter(*static_cast<TCustomFilterRecord*>(data), FWindow);
        return true;
    }
    return TFormsHost::ChannelMessage(number, data);
}

Boolean TDesktopHost::ChooseFile(TSaveDialog& dialog) {
    const QPointer<QFileDialog> box = new QFileDialog(FWindow);
    box->setAcceptMode(QFileDialog::AcceptSave);
    box->setFileMode(QFileDialog::AnyFile);
    box->setOption(QFileDialog::DontConfirmOverwrite); // asked in the user's language below
    box->setDirectory(ToQt(dialog.InitialDir));
    box->selectFile(ToQt(dialog.FileName));
    QString name;
    {
        const TFreshKeys fresh;
        if (box->exec() == QDialog::Accepted && box) name = box->selectedFiles().value(0);
    }
    delete box;
    if (name.isEmpty()) return false;
    const String full = dialog.FullName(FromQt(name));
    if (QFileInfo(ToQt(full)).isFile() && dialog.Has(ofOverwritePrompt) &&
        !Ask(FormatText(InterfaceText(TerminalKey::Res_OverwriteQuestion), {full}),
             /*isYesFirst=*/false)) {
        return false;
    }
    dialog.FileName = full;
    return true;
}

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
