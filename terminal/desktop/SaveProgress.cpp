#include "terminal/desktop/SaveProgress.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QApplication>

namespace quorin {

namespace {

QString Text(StringView key) {
    return ToQt(InterfaceText(key));
}

} // namespace

TSaveProgress::TSaveProgress(TViewExportLinks& links) : FLinks(links) {
    FLinks.SetProgress(MakeEvent<&TSaveProgress::Told>(this),
                       MakeEvent<&TSaveProgress::Ended>(this));
}

TSaveProgress::~TSaveProgress() {
    FLinks.SetProgress(nullptr, nullptr);
    Ended();
}

// The rows are what can be broken off; putting the file together cannot.
Boolean TSaveProgress::Told(Integer done, Integer all) {
    if (!FDialog) {
        FDialog = new QProgressDialog(Text(TerminalKey::Res_Saving),
                                      Text(TerminalKey::Res_CancelButton), 0, all, FWindow);
        FDialog->setWindowTitle(QStringLiteral("quorin"));
        FDialog->setWindowModality(Qt::ApplicationModal);
        FDialog->setMinimumDuration(FPatience);
        FDialog->setAutoClose(false);
        FDialog->setAutoReset(false);
        QObject::connect(FDialog, &QDialog::rejected, FDialog, &QProgressDialog::cancel);
        FDialog->setValue(0);
    }
    FDialog->setValue(done);
    if (FDialog && done == all && !FDialog->wasCanceled()) {
        FDialog->setCancelButton(nullptr);
        FDialog->setLabelText(Text(TerminalKey::Res_SavingEnd));
    }
    QApplication::processEvents();
    return FDialog && !FDialog->wasCanceled();
}

void TSaveProgress::Ended() {
    delete FDialog;
}

} // namespace quorin
