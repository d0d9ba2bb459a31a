#pragma once

#include "terminal/desktop/AccountBar.h"
#include "terminal/desktop/ActionPane.h"
#include "terminal/forms/PositionViewForm.h"

class QLabel;

namespace quorin {

// The main position list: of one account, or of a master with all below it, with closes above the
// rows and the totals and the holder below them.
class TPositionViewPane : public TActionPane {
    Q_OBJECT

public:
    // Begins with this account, known or not. `dialog` asks about orders; it must live longer.
    TPositionViewPane(StringView account, TOrderDialog& dialog, QWidget* parent = nullptr);
    ~TPositionViewPane() override;

    TPositionViewForm& Form() { return *FForm; }
    TAccountBar& AccountBar() { return *FAccounts; }
    QLabel& Summary() { return *FSummary; }

    void Follow() override;
    QString Caption() override;
    // See TAccountView::AccountChoice.
    String Choice() override { return FForm->AccountChoice(); }
    void SetChoice(StringView choice) override { FForm->TakeAccountChoice(choice); }
    void TakeAccount(StringView account) override { FForm->ShowAccount(account); }

protected:
    void JoinGroup(StringView groupID) override;

private:
    void ShowSummary();

    TPositionViewForm* FForm; // the base's
    TAccountBar* FAccounts;
    QLabel* FSummary;
    TShownLanguage FLanguage;
    Int64 FSummedPaints = -1; // of the grid, when the summary was made
};

} // namespace quorin
