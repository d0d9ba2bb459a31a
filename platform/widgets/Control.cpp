#include "platform/widgets/Control.h"

#include <algorithm>

namespace quorin {

TControl::~TControl() {
    BeginDestruction();
    TControl& window = Window();
    if (window.FFocused != nullptr && window.FFocused->StandsIn(*this)) window.FFocused = nullptr;
    for (TControl* control : FControls) control->FParent = nullptr;
    if (FParent != nullptr) {
        FParent->FControls.RemoveAll([this](TControl* control) { return control == this; });
    }
}

void TControl::SetParent(TControl* parent) {
    if (parent == FParent || (parent != nullptr && parent->StandsIn(*this))) return;
    if (TControl* focused = Window().FFocused; focused != nullptr && focused->StandsIn(*this)) {
        const TWatch watch(FLifeline);
        DropFocus(focused);
        if (!watch.IsAlive()) return;
    }
    if (FParent != nullptr) {
        FParent->FControls.RemoveAll([this](TControl* control) { return control == this; });
    }
    FParent = parent;
    if (FParent != nullptr) FParent->FControls.Add(this);
}

void TControl::SetBounds(Integer left, Integer top, Integer width, Integer height) {
    const TPoint size = Constrained({std::max(width, 0), std::max(height, 0)});
    FLeft = left;
    FTop = top;
    if (size == TPoint{FWidth, FHeight}) return;
    FWidth = size.X;
    FHeight = size.Y;
    Resized();
}

void TControl::SetVisible(bool visible) {
    FVisible = visible;
    DropImpossibleFocus(Window());
}

void TControl::SetEnabled(bool enabled) {
    FEnabled = enabled;
    DropImpossibleFocus(Window());
}

bool TControl::Showing() const {
    return FVisible && (FParent == nullptr || FParent->Showing());
}

bool TControl::CanFocus() const {
    return FVisible && FEnabled && !FIsDestroying && (FParent == nullptr || FParent->CanFocus());
}

const TControl& TControl::Window() const {
    const TControl* window = this;
    while (window->FParent != nullptr) window = window->FParent;
    return *window;
}

bool TControl::StandsIn(const TControl& other) const {
    const TControl* control = this;
    while (control != nullptr && control != &other) control = control->FParent;
    return control != nullptr;
}

void TControl::SetFocus() {
    if (Focused()) {
        FKeepsFocus = true; // of use inside an exit only, which clears it when it begins
        return;
    }
    if (!CanFocus()) return;
    const TWatch watch(FLifeline);
    TControl* holder = Window().FFocused;
    if (holder != nullptr && !holder->Leave()) return;
    // The exit has called out: another may have the focus, or this one be hidden or gone.
    if (!watch.IsAlive() || !CanFocus() || Window().FFocused != nullptr) return;
    Window().FFocused = this;
    FocusChanged();
    Raise(FOnEnter);
}

bool TControl::Leave() {
    if (!Focused()) return true;
    if (FIsLeaving) return false;
    const TWatch watch(FLifeline);
    const bool leaves = RunExit();
    if (!watch.IsAlive()) return true;
    if (!leaves && Focused()) return false;
    if (Focused()) {
        Window().FFocused = nullptr;
        FocusChanged();
    }
    return true;
}

bool TControl::RunExit() {
    if (FIsLeaving) return false;
    const TWatch watch(FLifeline);
    FIsLeaving = true;
    FKeepsFocus = false;
    const bool leaves = DoExit();
    if (!watch.IsAlive()) return true;
    FIsLeaving = false;
    return leaves && !FKeepsFocus;
}

bool TControl::DoExit() {
    Raise(FOnExit);
    return true;
}

// Unlike a leave, this can't be refused.
void TControl::DropFocus(TControl* control) {
    const TWatch watch(control->FLifeline);
    control->RunExit();
    if (!watch.IsAlive() || !control->Focused()) return;
    control->Window().FFocused = nullptr;
    control->FocusChanged();
}

void TControl::DropImpossibleFocus(TControl& window) {
    if (window.FFocused != nullptr && !window.FFocused->CanFocus()) DropFocus(window.FFocused);
}

Int64 TControl::Perform(Integer message, Int64, Int64) {
    if (message == CM_EXIT) RunExit();
    return 0;
}

} // namespace quorin
