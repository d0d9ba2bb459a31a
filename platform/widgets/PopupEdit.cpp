#include "platform/widgets/PopupEdit.h"

#include <algorithm>

namespace quorin {

void TcxPopupWindow::SetMinSize(TPoint size) {
    FMinSize = size;
    SetBounds(Left(), Top(), Width(), Height());
}

TPoint TcxPopupWindow::Constrained(TPoint size) const {
    return {std::max(size.X, FMinSize.X), std::max(size.Y, FMinSize.Y)};
}

void TcxPopupWindow::Resized() {
    for (Integer index = 0; index < ControlCount(); ++index) {
        GetControl(index)->SetBounds(0, 0, Width(), Height());
    }
}

void TcxPopupWindow::Take(TControl& control) {
    if (control.Parent() != this) {
        if (auto* other = ObjectAs<TcxPopupWindow>(control.Parent())) other->Hide();
        control.SetParent(this);
    }
    Resized();
}

TcxPopupEditProperties::TcxPopupEditProperties(TcxPopupEdit& edit)
    : TcxCustomEditProperties(edit), FPopupEdit(edit) {}

TcxPopupEditProperties::~TcxPopupEditProperties() {
    if (FPopupControl != nullptr) FPopupControl->RemoveFreeListener(this);
}

void TcxPopupEditProperties::SetPopupControl(TControl* control) {
    if (control == FPopupControl) return;
    FPopupEdit.CloseUp();
    if (FPopupControl != nullptr) {
        FPopupControl->RemoveFreeListener(this);
        if (FPopupControl->Parent() == &FPopupEdit.PopupWindow()) FPopupControl->SetParent(nullptr);
    }
    FPopupControl = control;
    if (FPopupControl == nullptr) return;
    FPopupControl->AddFreeListener(MakeEvent<&TcxPopupEditProperties::PopupControlGone>(this),
                                   this);
    FPopupEdit.PopupWindow().Take(*FPopupControl);
}

void TcxPopupEditProperties::PopupControlGone(TObject*) {
    FPopupControl = nullptr;
    FPopupEdit.CloseUp();
}

void TcxPopupEditProperties::SetPopupWidth(Integer width) {
    FPopupWidth = width;
    Changed();
}

void TcxPopupEditProperties::SetPopupHeight(Integer height) {
    FPopupHeight = height;
    Changed();
}

void TcxPopupEditProperties::SetPopupMinWidth(Integer width) {
    FPopupMinWidth = width;
    Changed();
}

void TcxPopupEditProperties::SetPopupMinHeight(Integer height) {
    FPopupMinHeight = height;
    Changed();
}

void TcxPopupEdit::PropertiesChanged() {
    FWindow.SetMinSize({FProperties.PopupMinWidth(), FProperties.PopupMinHeight()});
    FWindow.SetBounds(0, Height(), FProperties.PopupWidth(), FProperties.PopupHeight());
}

void TcxPopupEdit::SetText(StringView text) {
    if (text == Text()) return;
    ShowText(text);
    CaretToEnd();
    Raise(FProperties.OnChange());
}

void TcxPopupEdit::PostContent(const Variant* replaced) {
    if (replaced != nullptr && !replaced->IsArray()) SetText(replaced->ToText());
}

void TcxPopupEdit::DropDown() {
    if (DroppedDown() || FProperties.PopupControl() == nullptr) return;
    const TWatch watch(FLifeline);
    SetFocus();
    if (!watch.IsAlive() || !TakesKeys() || FProperties.PopupControl() == nullptr) return;
    FWindow.Take(*FProperties.PopupControl());
    if (!watch.IsAlive()) return;
    PropertiesChanged(); // a size that was given to the window alone was for one time
    FWindow.Show();
    Raise(FProperties.OnPopup());
}

void TcxPopupEdit::ToggleDropDown() {
    if (DroppedDown()) {
        CloseUp();
    } else {
        DropDown();
    }
}

void TcxPopupEdit::ResizePopup(Integer width, Integer height) {
    if (!DroppedDown()) return;
    FProperties.SetPopupWidth(width);
    FProperties.SetPopupHeight(height);
}

TRect TcxPopupEdit::ButtonRect(Integer) const {
    return {Width() > ButtonWidth ? Width() - ButtonWidth : 0, 0, Width(), Height()};
}

void TcxPopupEdit::ButtonDown(Integer) {
    ToggleDropDown();
}

bool TcxPopupEdit::HandleKey(Word key, TShiftState shift) {
    const bool withAlt = Has(shift, TShiftState::Alt);
    if (key == Key::F4 || (key == Key::Down && withAlt)) {
        ToggleDropDown();
        return true;
    }
    if (DroppedDown() && (key == Key::Escape || (key == Key::Up && withAlt))) {
        CloseUp();
        return true;
    }
    if (key == Key::Return) {
        CloseUp();
        return false;
    }
    return TcxCustomEdit::HandleKey(key, shift);
}

bool TcxPopupEdit::DoExit() {
    const TWatch watch(FLifeline);
    CloseUp();
    return !watch.IsAlive() || TcxCustomEdit::DoExit();
}

} // namespace quorin
