#pragma once

#include "terminal/forms/ListForm.h"

#include <optional>

namespace quorin {

// The rows of something that only grows and does not call back: told of once per frame.
class TGrowingControl : public TCustomDataControl {
    QUORIN_CLASS(TGrowingControl, TCustomDataControl)

    const TColumnList* GetColList() override { return FColumns.List(); }
    // Numbers as such, null where there is none; the rest as in the cell.
    Variant GetValue(Integer RecordIndex, Integer Attribute) override;
    // As CellText, EmptyDisplayText where that is empty.
    String GetDisplayValue(Integer RecordIndex, Integer Attribute) override;

    // Signals if more has come since the last call.
    void Follow();

protected:
    TGrowingControl(TComponent* AOwner, std::span<const TFormColumn> columns);

    // Grows with everything that comes.
    virtual Int64 Written() const = 0;
    // Of a record that is there: its number, which may be null, nothing where the column shows
    // text.
    virtual std::optional<Variant> CellNumber(Integer record, Integer attribute) const = 0;
    // The text; empty where there is none.
    virtual String CellText(Integer record, Integer attribute) const = 0;

private:
    TFormColumns FColumns;
    Int64 FTold = 0;
};

// The list over such rows.
class TGrowingListForm : public TListForm {
    QUORIN_CLASS(TGrowingListForm, TListForm)

    // To be called once per frame, before the list is drawn.
    void Follow() { FControl->Follow(); }

protected:
    void BindGrowing(std::unique_ptr<TGrowingControl> control) {
        FControl = control.get();
        Bind(std::move(control));
    }

private:
    TGrowingControl* FControl = nullptr; // the source's
};

} // namespace quorin
