#pragma once

#include "terminal/forms/TreeForm.h"
#include "viewdata/account/AccountCashDataControl.h"

namespace quorin {

using TCashTreeControl = TTerminalAccountControl<TCustomAccountCashDataControl>;

// One account, or every account of the user, with a row per currency below each.
class TCashTreeForm : public TTreeForm {
    QUORIN_CLASS(TCashTreeForm, TTreeForm)

    TCashTreeForm();

    // For good: the account shown counts for nothing afterwards.
    void ShowAll();
    bool IsShowingAll() const { return FShowsAll; }

    bool IsText(Integer attribute) const override;
    String Title() override;

protected:
    String ColumnText(Integer tag) override;

private:
    bool FShowsAll = false;
};

} // namespace quorin
