#pragma once

#include "terminal/forms/ListForm.h"
#include "viewdata/positionview/PositionViewDataControl.h"

namespace quorin {

// The main position list of the terminal: of one account, or of a master with all below it.
class TPositionViewControl : public TPositionViewDataControl {
    QUORIN_CLASS(TPositionViewControl, TPositionViewDataControl)

    explicit TPositionViewControl(TComponent* AOwner = nullptr);

    const TColumnList* GetColList() override { return FColumns.List(); }

private:
    TFormColumns FColumns;
};

class TPositionViewForm : public TListForm {
    QUORIN_CLASS(TPositionViewForm, TListForm)

    TPositionViewForm();

    TPositionViewControl& Control() { return *FControl; }
    bool IsText(Integer attribute) const override;

    // Every column that the view answers in its own way, and those that name the row.
    std::vector<Integer> Attributes() override;

private:
    TPositionViewControl* FControl; // the source's
};

} // namespace quorin
