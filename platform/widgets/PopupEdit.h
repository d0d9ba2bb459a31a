#pragma once

#include "platform/widgets/CustomEdit.h"
#include "platform/widgets/ImageList.h"

namespace quorin {

class TcxPopupEdit;

// The window that drops down from a popup edit. What stands in it fills it. Hiding it closes the
// popup.
class TcxPopupWindow : public TControl {
    QUORIN_CLASS(TcxPopupWindow, TControl)

    explicit TcxPopupWindow(TComponent* owner = nullptr) : TControl(owner) { Hide(); }
    ~TcxPopupWindow() override { BeginDestruction(); }

    void SetMinSize(TPoint size);
    // Becomes the control's parent; another popup window that had it closes.
    void Take(TControl& control);

protected:
    void Resized() override;
    TPoint Constrained(TPoint size) const override;

private:
    TPoint FMinSize;
};

class TcxPopupEditProperties : public TcxCustomEditProperties {
    QUORIN_CLASS(TcxPopupEditProperties, TcxCustomEditProperties)

    static constexpr Integer DefaultPopupWidth = 250;
    static constexpr Integer DefaultPopupHeight = 200;
    static constexpr Integer DefaultPopupMinSize = 100;

    explicit TcxPopupEditProperties(TcxPopupEdit& edit);
    ~TcxPopupEditProperties() override;

    // What the popup shows; not owned, and forgotten when it dies. The popup window becomes its
    // parent at once, and again whenever it drops down, so that edits can share one control.
    TControl* PopupControl() const { return FPopupControl; }
    void SetPopupControl(TControl* control);

    // Sizes of the popup window; an open one follows.
    Integer PopupWidth() const { return FPopupWidth; }
    void SetPopupWidth(Integer width);
    Integer PopupHeight() const { return FPopupHeight; }
    void SetPopupHeight(Integer height);
    Integer PopupMinWidth() const { return FPopupMinWidth; }
    void SetPopupMinWidth(Integer width);
    Integer PopupMinHeight() const { return FPopupMinHeight; }
    void SetPopupMinHeight(Integer height);

    // What the drop-down button shows; an empty picture leaves it to the skin.
    TcxImage& ButtonImage() { return FButtonImage; }

    // The popup window has opened, with its control inside.
    const TNotifyEvent& OnPopup() const { return FOnPopup; }
    void SetOnPopup(const TNotifyEvent& event) { FOnPopup = event; }

private:
    void PopupControlGone(TObject*);

    TcxPopupEdit& FPopupEdit;
    TControl* FPopupControl = nullptr;
    TcxImage FButtonImage;
    TNotifyEvent FOnPopup;
    Integer FPopupWidth = DefaultPopupWidth;
    Integer FPopupHeight = DefaultPopupHeight;
    Integer FPopupMinWidth = DefaultPopupMinSize;
    Integer FPopupMinHeight = DefaultPopupMinSize;
};

// A field for text with a button that drops down a window with any control in it. The button, F4
// and Alt+Down open and close it; Escape, Return, Alt+Up and leaving close it. The window has a
// focus of its own, so the field keeps its focus while the person works in the window. Without a
// control nothing drops down. Return accepts what was entered, Escape takes it back.
class TcxPopupEdit : public TcxCustomEdit {
    QUORIN_CLASS(TcxPopupEdit, TcxCustomEdit)

    explicit TcxPopupEdit(TComponent* owner = nullptr) : TcxCustomEdit(owner) {
        PropertiesChanged();
    }
    ~TcxPopupEdit() override { BeginDestruction(); }

    TcxPopupEditProperties& Properties() override { return FProperties; }

    // Shows the text with the caret behind it and raises Properties.OnChange before it returns; an
    // equal text does neither.
    void SetText(StringView text);

    TcxPopupWindow& PopupWindow() { return FWindow; }
    bool DroppedDown() const { return FWindow.Visible(); }
    // Takes the focus, opens the window and raises Properties.OnPopup. Nothing when it is open.
    void DropDown();
    void CloseUp() { FWindow.Hide(); }
    // User action: the window's edge is dragged. Stays for the next time.
    void ResizePopup(Integer width, Integer height);

    Integer ButtonCount() const override { return 1; }
    TRect ButtonRect(Integer index) const override;

protected:
    bool HandleKey(Word key, TShiftState shift) override;
    void TextEdited() override { Raise(FProperties.OnChange()); }
    void RememberContent() override { FTextBeforeEdit = Text(); }
    void RestoreContent() override { SetText(FTextBeforeEdit); }
    void PostContent(const Variant* replaced) override;
    void PropertiesChanged() override;
    void ButtonDown(Integer index) override;
    bool DoExit() override;

private:
    void ToggleDropDown();

    TcxPopupWindow FWindow;
    TcxPopupEditProperties FProperties{*this}; // gives its control back before the window goes
    String FTextBeforeEdit;
};

} // namespace quorin
