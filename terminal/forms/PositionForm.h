#pragma once

#include "terminal/forms/ListForm.h"
#include "viewdata/position/PositionDataControl.h"

namespace quorin {

// The positions of one account with the columns of the terminal.
class TPositionControl : public TCustomPositionDataControl {
    QUORIN_CLASS(TPositionControl, TCustomPositionDataControl)

    explicit TPositionControl(TComponent* AOwner = nullptr);

    const TColumnList* GetColList() override { return FColumns.List(); }
    // The group that copies of a row name; empty for none.
    void SetGroupID(StringView groupID) { GroupID = groupID; }

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

} // namespace quorin
