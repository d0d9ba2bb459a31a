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

// Every order of the day in order of entry, also what is filled, cancelled or refused by now.
class TOrdersControl : public TCustomDataControl {
    QUORIN_CLASS(TOrdersControl, TCustomDataControl)

    // `desk` must live longer.
    TOrdersControl(TComponent* AOwner, TOrderDesk& desk);
    ~TOrdersControl() override;

    const TColumnList* GetColList() override { return FColumns.List(); }
    Integer GetCount() override { return static_cast<Integer>(FDesk.Orders().size()); }
    // Numbers as such, null where there is none; the rest as in the cell.
    Variant GetValue(Integer RecordIndex, Integer Attribute) override;
    String GetDisplayValue(Integer RecordIndex, Integer Attribute) override;

private:
    void OrdersChanged(Pointer, Pointer) { FireDataChanged(); }

    TOrderDesk& FDesk;
    TFormColumns FColumns;
};

class TOrdersForm : public TListForm {
    QUORIN_CLASS(TOrdersForm, TListForm)

    explicit TOrdersForm(TOrderDesk& desk) { Bind(CreateComponent<TOrdersControl>(nullptr, desk)); }

    bool IsText(Integer attribute) const override;
};

} // namespace quorin
