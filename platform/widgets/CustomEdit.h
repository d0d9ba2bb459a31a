#pragma once

#include "platform/widgets/Control.h"
#include "platform/widgets/EditText.h"

namespace quorin {

class TcxCustomEdit;

// What is set once for a field rather than typed into it. Belongs to its widget, which follows a
// change at once.
class TcxCustomEditProperties : public TObject {
    QUORIN_CLASS(TcxCustomEditProperties, TObject)

    explicit TcxCustomEditProperties(TcxCustomEdit& edit) : FEdit(edit) {}

    // What the field holds has changed.
    const TNotifyEvent& OnChange() const { return FOnChange; }
    void SetOnChange(const TNotifyEvent& event) { FOnChange = event; }
    // What the person has entered is about to be accepted.
    const TcxEditValidateEvent& OnValidate() const { return FOnValidate; }
    void SetOnValidate(const TcxEditValidateEvent& event) { FOnValidate = event; }

protected:
    void Changed();

private:
    TcxCustomEdit& FEdit;
    TNotifyEvent FOnChange;
    TcxEditValidateEvent FOnValidate;
};

// What a spin edit and a popup edit share: a field of one line with a caret, a selection and
// buttons at its right edge. Handlers may change the key, replace the text, move the caret, take
// the focus away or free the widget. Not supported: undo beyond Escape, passwords, several lines.
//
// Order of events:
//   typing     OnKeyDown, OnKeyPress, the text changes, Properties.OnChange; OnKeyUp
//   deletion   the same with KeyChar::Deletion; a paste is Ctrl+V with KeyChar::Paste
//   mouse      OnEnter if the focus was elsewhere, OnMouseDown, the caret moves or the button acts;
//              OnClick unless on a button, OnMouseUp
//   leave      OnMouseUp if the mouse is down, Properties.OnValidate and Properties.OnChange if
//              something was entered, OnExit
// A key used up (0) or a widget that can no longer take keys ends the action.
class TcxCustomEdit : public TControl {
    QUORIN_CLASS(TcxCustomEdit, TControl)

    static constexpr Integer NoButton = -1;
    static constexpr Integer ButtonWidth = 17;
    static constexpr Integer DefaultWidth = 121;
    static constexpr Integer DefaultHeight = 21;

    explicit TcxCustomEdit(TComponent* owner);

    virtual TcxCustomEditProperties& Properties() = 0;

    // State. What stands in the field.
    const String& Text() const { return FText.Text(); }
    const String& EditingText() const { return FText.Text(); }
    // Replaces what stands in the field and raises nothing. The value follows with the person's
    // next edit only; the caret stays where it is as far as the text reaches.
    void SetEditingText(StringView text) { FText.Assign(text); }
    // The caret stands at one end of the selection. Positions count units and are brought into the
    // text; none splits a surrogate pair.
    Integer CaretPosition() const { return FText.Caret(); }
    Integer SelStart() const { return FText.SelStart(); }
    void SetSelStart(Integer position) { FText.Select(position, position); }
    Integer SelLength() const { return FText.SelLength(); }
    void SetSelLength(Integer length) { FText.Select(SelStart(), SelStart() + length); }
    StringView SelText() const { return FText.SelText(); }
    void SelectAll() { FText.Select(0, FText.Length()); }
    // What an input method is still composing; shown at the caret, not yet part of the text.
    const String& CompositionText() const { return FComposition; }
    // The person has entered something that is not accepted yet.
    bool IsEdited() const { return FIsEdited; }
    // Why the last validation refused; empty when it did not.
    const String& ErrorText() const { return FErrorText; }

    // Buttons are numbered from 0; places are inside the widget.
    virtual Integer ButtonCount() const = 0;
    virtual TRect ButtonRect(Integer index) const = 0;
    // NoButton where there is none.
    Integer ButtonVisibleIndexAt(TPoint point) const;
    // The button that the mouse holds down, or NoButton.
    Integer PressedButton() const { return FPressedButton; }

    // Events; those of the text are with the properties.
    const TKeyEvent& OnKeyDown() const { return FOnKeyDown; }
    void SetOnKeyDown(const TKeyEvent& event) { FOnKeyDown = event; }
    const TKeyPressEvent& OnKeyPress() const { return FOnKeyPress; }
    void SetOnKeyPress(const TKeyPressEvent& event) { FOnKeyPress = event; }
    const TKeyEvent& OnKeyUp() const { return FOnKeyUp; }
    void SetOnKeyUp(const TKeyEvent& event) { FOnKeyUp = event; }
    const TMouseEvent& OnMouseDown() const { return FOnMouseDown; }
    void SetOnMouseDown(const TMouseEvent& event) { FOnMouseDown = event; }
    const TMouseEvent& OnMouseUp() const { return FOnMouseUp; }
    void SetOnMouseUp(const TMouseEvent& event) { FOnMouseUp = event; }
    const TMouseWheelEvent& OnMouseWheel() const { return FOnMouseWheel; }
    void SetOnMouseWheel(const TMouseWheelEvent& event) { FOnMouseWheel = event; }
    const TNotifyEvent& OnClick() const { return FOnClick; }
    void SetOnClick(const TNotifyEvent& event) { FOnClick = event; }

    // User actions with the keyboard; nothing without the focus.
    // A key goes down, with the text that it types, if any. A key held down comes again and again.
    void PressKey(Word key, TShiftState shift = TShiftState::None, StringView text = {});
    void ReleaseKey(Word key, TShiftState shift = TShiftState::None);
    // Each character goes down and up.
    void TypeText(StringView text);
    // Up to the first line break; a descendant may refuse it as a whole.
    void Paste(StringView text);
    // Takes the selection out and answers it, for the clipboard; empty when that was prevented.
    String Cut();
    // An input method shows what it composes; empty text gives it up. Raises nothing.
    void Compose(StringView text);
    // What was composed is typed, under Key::Composed.
    void CommitComposition(StringView text);

    // User actions with the left mouse button; nothing on a widget that can't take the focus. A
    // press is always followed by its release, at the latest in the leave.
    // `position` is the place in the text that lies under the mouse.
    void PressMouse(TPoint at, Integer position, TShiftState shift = TShiftState::None);
    void DragMouse(Integer position);
    void ReleaseMouse() { LetMouseGo(/*clicks=*/true); }
    void PressButton(Integer index = 0);
    void ReleaseButton() { ReleaseMouse(); }
    // Down and up on the text at `position`.
    void Click(Integer position);
    // True when the widget has used it.
    bool Wheel(Integer wheelDelta, TShiftState shift = TShiftState::None, TPoint at = {});

protected:
    friend class TcxCustomEditProperties;

    // What this kind of field does with a key before it counts as input; True ends the key.
    virtual bool HandleKey(Word key, TShiftState shift);
    // The character that a typed or pasted one stands for.
    virtual Char Folded(Char unit) const { return unit; }
    virtual bool Accepts(Char) const { return true; }
    // A paste as it goes in, folded; empty refuses it.
    virtual StringView PasteOf(StringView text) const { return text; }
    // The person has changed the text.
    virtual void TextEdited() = 0;
    // For Escape: remember what the field holds, and give it back.
    virtual void RememberContent() = 0;
    virtual void RestoreContent() = 0;
    // What was entered has passed validation; `replaced` is what a handler put in its place.
    virtual void PostContent(const Variant* replaced) = 0;
    virtual void PropertiesChanged() {}
    virtual void ButtonDown(Integer) {}
    // True when the widget has a use for it.
    virtual bool WheelTurned(Integer) { return false; }
    bool DoExit() override;
    void FocusChanged() override;

    // Validates and posts what was entered; False when it is refused.
    bool AcceptEdit();
    void CancelEdit();
    void BeginEdit();
    bool TakesKeys() const { return Focused() && CanFocus(); }
    // For descendants that show their own content.
    void ShowText(StringView text) { FText.Assign(text); }
    void CaretToEnd() { SetSelStart(FText.Length()); }

private:
    void LetMouseGo(bool clicks);
    Char KeyPressed(Char key);
    void TypeCharacter(StringView character);
    void ActOnControl(Char control);
    bool CommandPressed(Word key, Char control);
    void InsertEdited(StringView text);
    void EraseEdited(bool toRight);
    void TypeUnder(Word fixedKey, StringView text);

    TcxEditText FText;
    String FComposition;
    String FErrorText;
    TKeyEvent FOnKeyDown;
    TKeyPressEvent FOnKeyPress;
    TKeyEvent FOnKeyUp;
    TMouseEvent FOnMouseDown;
    TMouseEvent FOnMouseUp;
    TMouseWheelEvent FOnMouseWheel;
    TNotifyEvent FOnClick;
    TPoint FPressedAt;
    TShiftState FPressedShift = TShiftState::None;
    Integer FPressedButton = NoButton;
    bool FIsMouseDown = false;
    bool FIsEdited = false;
};

} // namespace quorin
