#pragma once

#include "terminal/forms/ListForm.h"
#include "viewdata/position/PositionDataControl.h"

namespace quorin {

// The positions of one account with the columns of the terminal.
class TPositionControl : public TCustomPositionDataControl {
    QUORIN_CLASS(TPositionControl, TCustomPositionDataControl)

    explicit TPositionControl(TComponent* AOwner = nullptr);

    const TColumnList* GetColList() override { return FColumns.List(); }

private:
    TFormColumns FColumns;
};

class TPositionForm : public TListForm {
    QUORIN_CLASS(TPositionForm, TListForm)

    TPositionForm();

    TPositionControl& Control() { return *FControl; }

private:
    TPositionControl* FControl; // the source's
};

// What the user is shown before every position is closed.
class TCloseAllForm : public TListForm {
    QUORIN_CLASS(TCloseAllForm, TListForm)

    // Takes over the control that came with the question.
    explicit TCloseAllForm(std::unique_ptr<TBaseDataControl> list) { Bind(std::move(list)); }
};

} // namespace quorin
