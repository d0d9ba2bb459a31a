#pragma once

#include "terminal/forms/GrowingListForm.h"
#include "terminal/forms/MessageLog.h"

namespace quorin {

// The tags of the message list's columns.
namespace MessageAttribute {
inline constexpr Integer Number = 1;
inline constexpr Integer Time = 2;
inline constexpr Integer Kind = 3;
inline constexpr Integer Level = 4;
inline constexpr Integer Text = 5;
} // namespace MessageAttribute

// What the program logged, showed and asked, oldest first, each in one line.
class TMessageControl : public TGrowingControl {
    QUORIN_CLASS(TMessageControl, TGrowingControl)

    // `log` must live longer.
    TMessageControl(TComponent* AOwner, const TMessageLog& log);

    Integer GetCount() override { return FLog.Count(); }

protected:
    Int64 Written() const override { return FLog.AddedCount(); }
    std::optional<Variant> CellNumber(Integer record, Integer attribute) const override;
    String CellText(Integer record, Integer attribute) const override;

private:
    const TMessageLog& FLog;
};

class TMessageListForm : public TGrowingListForm {
    QUORIN_CLASS(TMessageListForm, TGrowingListForm)

    explicit TMessageListForm(const TMessageLog& log) {
        BindGrowing(CreateComponent<TMessageControl>(nullptr, log));
    }

    TFormView FormView() override;
    bool IsText(Integer attribute) const override;
    String Title() override;
};

} // namespace quorin
