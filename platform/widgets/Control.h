#pragma once

#include "platform/rtl/Lifeline.h"
#include "platform/rtl/TComponent.h"
#include "platform/rtl/TList.h"
#include "platform/widgets/InputEvents.h"

#include <utility>

namespace quorin {

// Makes a control act as if the focus had left it; see TControl::Perform.
inline constexpr Integer CM_EXIT = 45083;

// Something with a place on the screen that may take the focus. Controls stand in parents; a parent
// owns none of them, and when it dies they are left without one. A control without a parent is a
// window, and each window has one focus. Handlers may free the control. Not supported: painting,
// layout.
class TControl : public TComponent {
    QUORIN_CLASS(TControl, TComponent)

    explicit TControl(TComponent* owner = nullptr) : TComponent(owner) {}
    ~TControl() override;

    // Nil for a window.
    TControl* Parent() const { return FParent; }
    // Moves the control into `parent`, without the focus. A parent that stands inside this control
    // is ignored.
    void SetParent(TControl* parent);
    Integer ControlCount() const { return FControls.Count(); }
    // Nil outside.
    TControl* GetControl(Integer index) const {
        return FControls.Has(index) ? FControls[index] : nullptr;
    }

    // In the skin's own unit; sizes are never negative.
    Integer Left() const { return FLeft; }
    Integer Top() const { return FTop; }
    Integer Width() const { return FWidth; }
    Integer Height() const { return FHeight; }
    void SetWidth(Integer width) { SetBounds(FLeft, FTop, width, FHeight); }
    void SetHeight(Integer height) { SetBounds(FLeft, FTop, FWidth, height); }
    void SetBounds(Integer left, Integer top, Integer width, Integer height);

    // A control that is hidden or disabled, itself or with a parent, loses the focus.
    bool Visible() const { return FVisible; }
    void SetVisible(bool visible);
    void Show() { SetVisible(true); }
    void Hide() { SetVisible(false); }
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool enabled);
    // Visible, and so are all its parents.
    bool Showing() const;
    // Showing and enabled, and so are all its parents.
    bool CanFocus() const;

    // A text about the control for people and programs; never shown by itself.
    const String& Hint() const { return FHint; }
    void SetHint(StringView hint) { FHint = hint; }

    bool Focused() const { return Window().FFocused == this; }
    // Takes the focus if it can: the control that had it leaves first, and keeps it if it refuses
    // to. Inside its own exit it keeps the focus.
    void SetFocus();

    // CM_EXIT runs all that a leave does and leaves the focus where it is; nothing inside a leave.
    // Answers 0 always; other messages do nothing.
    Int64 Perform(Integer message, Int64 wideParameter, Int64 longParameter);

    // True from the beginning of the destructor on.
    bool IsDestroying() const { return FIsDestroying; }

    // Events. OnExit comes last in a leave, while the control still has the focus.
    const TNotifyEvent& OnEnter() const { return FOnEnter; }
    void SetOnEnter(const TNotifyEvent& event) { FOnEnter = event; }
    const TNotifyEvent& OnExit() const { return FOnExit; }
    void SetOnExit(const TNotifyEvent& event) { FOnExit = event; }

    // User actions: the focus comes and goes. Leave answers True when the control is without the
    // focus afterwards; a leave inside a leave is ignored.
    void Enter() { SetFocus(); }
    bool Leave();

protected:
    using TWatch = TLifeline::TWatch;

    // Called first in the destructor of each descendant that has one.
    void BeginDestruction() { FIsDestroying = true; }
    // Calls out if there is a handler. False when the control died meanwhile.
    template <class TAnyEvent, class... A>
    bool Raise(TAnyEvent event, A&&... arguments) {
        if (!event) return true;
        const TWatch watch(FLifeline);
        event(static_cast<TObject*>(this), std::forward<A>(arguments)...);
        return watch.IsAlive();
    }
    // What a leave does, the exit event last. False refuses: the focus stays.
    virtual bool DoExit();
    // The focus has come, before OnEnter, or gone, after OnExit.
    virtual void FocusChanged() {}
    // The size has changed.
    virtual void Resized() {}
    // The size that the control takes when it is given this one.
    virtual TPoint Constrained(TPoint size) const { return size; }

    TLifeline FLifeline;

private:
    TControl& Window() { return const_cast<TControl&>(std::as_const(*this).Window()); }
    const TControl& Window() const;
    bool StandsIn(const TControl& other) const;
    bool RunExit();
    static void DropFocus(TControl* control);
    static void DropImpossibleFocus(TControl& window);

    TControl* FParent = nullptr;
    TList<TControl*> FControls;
    TControl* FFocused = nullptr; // of a window: the control that has its focus
    String FHint;
    TNotifyEvent FOnEnter;
    TNotifyEvent FOnExit;
    Integer FLeft = 0;
    Integer FTop = 0;
    Integer FWidth = 0;
    Integer FHeight = 0;
    bool FVisible = true;
    bool FEnabled = true;
    bool FIsLeaving = false;
    bool FKeepsFocus = false; // asked for again inside its exit
    bool FIsDestroying = false;
};

// A part of a form that is designed on its own.
class TFrame : public TControl {
    QUORIN_CLASS(TFrame, TControl)

    static constexpr Integer DefaultWidth = 320;
    static constexpr Integer DefaultHeight = 240;

    explicit TFrame(TComponent* owner = nullptr) : TControl(owner) {
        SetBounds(0, 0, DefaultWidth, DefaultHeight);
    }
};

} // namespace quorin
