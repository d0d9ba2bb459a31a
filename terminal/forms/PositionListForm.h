#pragma once

#include "terminal/forms/ListForm.h"
#include "viewdata/position/PositionDataControl.h"

namespace quorin {

// What the terminal asks of a position list beside the view layer's operations, whichever it is.
class TPositionRows {
public:
    virtual ~TPositionRows() = default;

    // Nil for a bad row.
    virtual const TCustomPositionData* Record(Integer record) const = 0;
};

// A position list of the view layer with columns of the terminal.
template <class List>
class TTerminalPositionControl : public List, public TPositionRows {
    QUORIN_CLASS(TTerminalPositionControl, List)

    TTerminalPositionControl(std::span<const TFormColumn> columns, TComponent* AOwner)
        : List(AOwner), FColumns(columns) {
        this->EmptyDisplayText = NothingToShow;
    }

    const TColumnList* GetColList() override { return FColumns.List(); }
    const TCustomPositionData* Record(Integer record) const override {
        return this->RecordAt(record);
    }
    // The group that copies of a row name; empty for none.
    void SetGroupID(StringView groupID) { this->GroupID = groupID; }

private:
    TFormColumns FColumns;
};

// Positions without their pixels. What a price drives tells of its moves.
class TPositionListForm : public TListForm {
    QUORIN_CLASS(TPositionListForm, TListForm)

    std::optional<Double> MovingNumber(Integer row, Integer attribute) override;
    // By symbol and account, and apart for sums.
    std::size_t RowIdentity(Integer row) override;

protected:
    template <class Control>
    Control* BindPositions(std::unique_ptr<Control> control) {
        Control* bound = control.get();
        FRows = bound;
        Bind(std::move(control));
        return bound;
    }

private:
    TPositionRows* FRows = nullptr; // the source's
};

} // namespace quorin
