#pragma once

#include "terminal/forms/TreeForm.h"
#include "viewdata/account/AccountCashDataControl.h"

namespace quorin {

class TCashTreeControl : public TTerminalAccountControl<TCustomAccountCashDataControl> {
    QUORIN_CLASS(TCashTreeControl, TTerminalAccountControl<TCustomAccountCashDataControl>)

    using Inherited::Inherited;

    // Ends what MonitorAllAccount began.
    void MonitorOneAccount();
};

// One account, or every account of the user, with a row per currency below each.
class TCashTreeForm : public TTreeForm {
    QUORIN_CLASS(TCashTreeForm, TTreeForm)

    TCashTreeForm();

    // The account shown counts for nothing then.
    void ShowAll();
    // The account shown counts again.
    void ShowOne();
    bool IsShowingAll() const { return FShowsAll; }

    bool IsText(Integer attribute) const override;
    String Title() override;

protected:
    // The rows of the accounts.
    TTotal TotalOf(Pointer node, Integer tag) override;
    String ColumnText(Integer tag) override;

private:
    bool FShowsAll = false;
};

} // namespace quorin
