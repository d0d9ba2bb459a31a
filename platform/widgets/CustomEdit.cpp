#include "platform/widgets/CustomEdit.h"

namespace quorin {

void TcxCustomEditProperties::Changed() {
    FEdit.PropertiesChanged();
}

TcxCustomEdit::TcxCustomEdit(TComponent* owner) : TControl(owner) {
    SetBounds(0, 0, DefaultWidth, DefaultHeight);
}

void TcxCustomEdit::FocusChanged() {
    if (Focused()) SelectAll();
}

bool TcxCustomEdit::DoExit() {
    const TWatch watch(FLifeline);
    LetMouseGo(/*clicks=*/false);
    if (!watch.IsAlive()) return true;
    FComposition.clear();
    const bool accepted = AcceptEdit();
    if (!watch.IsAlive()) return true;
    return accepted && TControl::DoExit();
}

void TcxCustomEdit::BeginEdit() {
    if (FIsEdited) return;
    FIsEdited = true;
    RememberContent();
}

bool TcxCustomEdit::AcceptEdit() {
    FErrorText.clear();
    if (!FIsEdited) return true;
    const Variant entered(Text());
    Variant displayValue = entered;
    String errorText;
    Boolean error = false;
    if (!Raise(Properties().OnValidate(), displayValue, errorText, error)) return true;
    if (error) {
        FErrorText = errorText;
        return false;
    }
    FIsEdited = false;
    PostContent(displayValue == entered ? nullptr : &displayValue);
    return true;
}

void TcxCustomEdit::CancelEdit() {
    if (!FIsEdited) return;
    FIsEdited = false;
    FErrorText.clear();
    RestoreContent();
}

Integer TcxCustomEdit::ButtonVisibleIndexAt(TPoint point) const {
    for (Integer index = 0; index < ButtonCount(); ++index) {
        if (ButtonRect(index).Contains(point)) return index;
    }
    return NoButton;
}

void TcxCustomEdit::PressMouse(TPoint at, Integer position, TShiftState shift) {
    if (FIsMouseDown || !CanFocus()) return;
    const TWatch watch(FLifeline);
    Enter();
    if (!watch.IsAlive() || !TakesKeys()) return;
    FIsMouseDown = true;
    FPressedAt = at;
    FPressedShift = shift;
    FPressedButton = ButtonVisibleIndexAt(at);
    if (!Raise(FOnMouseDown, TMouseButton::Left, shift, at.X, at.Y)) return;
    if (!FIsMouseDown) return; // a handler took the focus away, which let the mouse go
    if (FPressedButton == NoButton) {
        FText.MoveCaret(position, Has(shift, TShiftState::Shift));
    } else {
        ButtonDown(FPressedButton);
    }
}

void TcxCustomEdit::DragMouse(Integer position) {
    if (FIsMouseDown && FPressedButton == NoButton) FText.MoveCaret(position, true);
}

void TcxCustomEdit::LetMouseGo(bool clicks) {
    if (!FIsMouseDown) return;
    const bool isClick = clicks && FPressedButton == NoButton;
    FIsMouseDown = false;
    FPressedButton = NoButton;
    const TPoint at = FPressedAt;
    const TShiftState shift = FPressedShift;
    if (isClick && !Raise(FOnClick)) return;
    Raise(FOnMouseUp, TMouseButton::Left, shift, at.X, at.Y);
}

void TcxCustomEdit::PressButton(Integer index) {
    if (index < 0 || index >= ButtonCount()) return;
    PressMouse(ButtonRect(index).Center(), 0);
}

void TcxCustomEdit::Click(Integer position) {
    const TWatch watch(FLifeline);
    PressMouse({}, position);
    if (watch.IsAlive()) ReleaseMouse();
}

bool TcxCustomEdit::Wheel(Integer wheelDelta, TShiftState shift, TPoint at) {
    if (!TakesKeys()) return false;
    Boolean handled = false;
    if (!Raise(FOnMouseWheel, shift, wheelDelta, at, handled)) return true;
    if (handled) return true;
    return TakesKeys() && WheelTurned(wheelDelta);
}

} // namespace quorin
