#pragma once

#include "embedded/OrderDesk.h"
#include "terminal/forms/ListForm.h"

namespace quorin {

// The tags of the order list's columns; symbol, account and name have their numbers of every list.
namespace OrderAttribute {
inline constexpr Integer Symbol = 0;
inline constexpr Integer Number = 1;
inline constexpr Integer Side = 2;
inline constexpr Integer Quantity = 3;
inline constexpr Integer Price = 4;
inline constexpr Integer Filled = 5;
inline constexpr Integer AveragePrice = 6;
inline constexpr Integer State = 7;
inline constexpr Integer Reason = 8;
inline constexpr Integer Account = 10;
inline constexpr Integer Name = 21;
} // namespace OrderAttribute

// The orders of the day in order of entry: every one, also what is filled, cancelled or refused by
// now, or those that still work.
class TOrdersControl : public TCustomDataControl {
    QUORIN_CLASS(TOrdersControl, TCustomDataControl)

    // `desk` must live longer.
    TOrdersControl(TComponent* AOwner, TOrderDesk& desk);
    ~TOrdersControl() override;

    // Every order to begin with.
    bool IsWorkingOnly() const { return FIsWorkingOnly; }
    void SetWorkingOnly(bool isWorkingOnly);

    const TColumnList* GetColList() override { return FColumns.List(); }
    Integer GetCount() override;
    // Numbers as such, null where there is none; the rest as in the cell.
    Variant GetValue(Integer RecordIndex, Integer Attribute) override;
    String GetDisplayValue(Integer RecordIndex, Integer Attribute) override;

private:
    void OrdersChanged(Pointer Sender, Pointer Data);
    const TDeskOrder& Order(Integer record) const;

    TOrderDesk& FDesk;
    bool FIsWorkingOnly = false;
    std::vector<Int64> FWorking; // numbers of the rows, when they are the working orders
    TFormColumns FColumns;
};

class TOrdersForm : public TListForm {
    QUORIN_CLASS(TOrdersForm, TListForm)

    explicit TOrdersForm(TOrderDesk& desk);

    TOrdersControl& Control() { return *FControl; }
    bool IsText(Integer attribute) const override;

protected:
    // An order's symbol is not its own.
    Integer KeyAttribute() const override { return OrderAttribute::Number; }

private:
    TOrdersControl* FControl; // the source's
};

} // namespace quorin
