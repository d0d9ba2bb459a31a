#include "terminal/forms/GrowingListForm.h"

#include <utility>

namespace quorin {

TGrowingControl::TGrowingControl(TComponent* AOwner, std::span<const TFormColumn> columns)
    : TCustomDataControl(AOwner), FColumns(columns) {
    EmptyDisplayText = NothingToShow;
}

Variant TGrowingControl::GetValue(Integer RecordIndex, Integer Attribute) {
    if (RecordIndex < 0 || RecordIndex >= GetCount()) return {};
    std::optional<Variant> number = CellNumber(RecordIndex, Attribute);
    return number.has_value() ? std::move(*number) : CellText(RecordIndex, Attribute);
}

String TGrowingControl::GetDisplayValue(Integer RecordIndex, Integer Attribute) {
    if (RecordIndex < 0 || RecordIndex >= GetCount()) return EmptyDisplayText;
    String text = CellText(RecordIndex, Attribute);
    return text.empty() ? EmptyDisplayText : text;
}

void TGrowingControl::Follow() {
    const Int64 written = Written();
    if (std::exchange(FTold, written) != written) FireDataChanged();
}

} // namespace quorin
