#include "platform/widgets/SpinEdit.h"

#include "platform/rtl/Numbers.h"

namespace quorin {

TcxSpinEditProperties::TcxSpinEditProperties(TcxSpinEdit& edit) : TcxCustomEditProperties(edit) {}

void TcxSpinEditProperties::SetMinValue(Double value) {
    FMinValue = value;
    FHasMinValue = true;
}

void TcxSpinEditProperties::SetMaxValue(Double value) {
    FMaxValue = value;
    FHasMaxValue = true;
}

void TcxSpinEditProperties::SetDisplayFormat(StringView pattern) {
    FDisplayFormat = pattern;
    Changed();
}

void TcxSpinEditProperties::SetEditFormat(StringView pattern) {
    FEditFormat = pattern;
    Changed();
}

void TcxSpinEditProperties::SetUseDisplayFormatWhenEditing(bool use) {
    FUseDisplayFormatWhenEditing = use;
    Changed();
}

void TcxSpinEditProperties::SetValueType(TcxSpinEditValueType type) {
    FValueType = type;
    Changed();
}

TcxSpinEdit::TcxSpinEdit(TComponent* owner) : TcxCustomEdit(owner) {}

void TcxSpinEdit::SetEditValue(const Variant& value) {
    Variant read;
    if (!TryRead(value, read) || read == FValue) return;
    FValue = read;
    ShowValue();
    CaretToEnd();
    Raise(FProperties.OnChange());
}

void TcxSpinEdit::ShowValue() {
    const bool isPlainEdit = Focused() && !FProperties.UseDisplayFormatWhenEditing();
    const String& pattern = isPlainEdit ? FProperties.EditFormat() : FProperties.DisplayFormat();
    FShown.clear();
    if (!FValue.IsNull()) {
        if (!pattern.empty()) {
            AppendPattern(FShown, FValue.ToDouble(), pattern);
        } else if (IsWhole()) {
            AppendInteger(FShown, FValue.ToInt64());
        } else {
            AppendDouble(FShown, FValue.ToDouble());
        }
    }
    if (FShown != Text()) ShowText(FShown);
}

void TcxSpinEdit::FocusChanged() {
    FWheelRest = 0;
    if (!IsEdited()) ShowValue();
    TcxCustomEdit::FocusChanged();
}

void TcxSpinEdit::PropertiesChanged() {
    Variant converted;
    TryRead(FValue, converted); // a number or null, so it reads
    const bool sameNumber = FValue.IsNull() || converted.ToDouble() == FValue.ToDouble();
    FValue = converted;
    if (!sameNumber || !IsEdited()) ShowValue();
    if (!sameNumber) Raise(FProperties.OnChange());
}

void TcxSpinEdit::TextEdited() {
    Variant typed;
    if (TryReadText(Text(), typed)) FValue = typed;
    Raise(FProperties.OnChange());
}

void TcxSpinEdit::PostContent(const Variant* replaced) {
    Variant accepted;
    if (replaced == nullptr || !TryRead(*replaced, accepted)) accepted = FValue;
    SettleOn(Limited(accepted));
}

// The value and its text, also in place of other text that left the value as it was.
void TcxSpinEdit::SettleOn(const Variant& value) {
    if (value == FValue) {
        ShowValue();
    } else {
        SetEditValue(value);
    }
}

TRect TcxSpinEdit::ButtonRect(Integer index) const {
    const Integer left = Width() > ButtonWidth ? Width() - ButtonWidth : 0;
    const Integer middle = Height() / 2;
    return index == UpButton ? TRect{left, 0, Width(), middle}
                             : TRect{left, middle, Width(), Height()};
}

} // namespace quorin
