#pragma once

#include "embedded/OrderDesk.h"
#include "terminal/forms/GrowingListForm.h"

namespace quorin {

// The tags of the audit list's columns; symbol and account have their numbers of every list.
namespace AuditAttribute {
inline constexpr Integer Symbol = 0;
inline constexpr Integer Sequence = 1;
inline constexpr Integer Time = 2;
inline constexpr Integer Kind = 3;
inline constexpr Integer OrderNumber = 4;
inline constexpr Integer Side = 5;
inline constexpr Integer Quantity = 6;
inline constexpr Integer Price = 7;
inline constexpr Integer Reason = 8;
inline constexpr Integer Text = 9;
inline constexpr Integer Account = 10;
} // namespace AuditAttribute

// The price of the entry as prices of its symbol are shown, a word for a market order's. A fill of
// one has a price, the order itself has none.
String AuditPriceText(const TOrderAuditEntry& entry, const TOrderDesk& desk);

// Everything that happened to orders, oldest first.
class TAuditControl : public TGrowingControl {
    QUORIN_CLASS(TAuditControl, TGrowingControl)

    // `desk` must live longer.
    TAuditControl(TComponent* AOwner, const TOrderDesk& desk);

    Integer GetCount() override { return FDesk.Audit().Count(); }

protected:
    Int64 Written() const override { return FDesk.Audit().Count(); }
    std::optional<Variant> CellNumber(Integer record, Integer attribute) const override;
    String CellText(Integer record, Integer attribute) const override;

private:
    const TOrderDesk& FDesk;
};

class TAuditForm : public TGrowingListForm {
    QUORIN_CLASS(TAuditForm, TGrowingListForm)

    explicit TAuditForm(const TOrderDesk& desk) {
        BindGrowing(CreateComponent<TAuditControl>(nullptr, desk));
    }

    bool IsText(Integer attribute) const override;
    String Title() override;
};

} // namespace quorin
