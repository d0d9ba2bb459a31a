#pragma once

#include "terminal/forms/PositionListForm.h"

namespace quorin {

// The positions of one account with the columns of the terminal.
class TPositionControl : public TTerminalPositionControl<TCustomPositionDataControl> {
    QUORIN_CLASS(TPositionControl, TTerminalPositionControl<TCustomPositionDataControl>)

    explicit TPositionControl(TComponent* AOwner = nullptr);
};

class TPositionForm : public TPositionListForm {
    QUORIN_CLASS(TPositionForm, TPositionListForm)

    TPositionForm();

    TPositionControl& Control() { return *FControl; }

private:
    TPositionControl* FControl; // the source's
};

} // namespace quorin
