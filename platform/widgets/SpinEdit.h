#pragma once

#include "platform/widgets/CustomEdit.h"

namespace quorin {

class TcxSpinEdit;

// What a spin edit's value is made of: Int64 or Double.
enum class TcxSpinEditValueType : Byte { Whole = 0, Float = 1 };

class TcxSpinEditProperties : public TcxCustomEditProperties {
    QUORIN_CLASS(TcxSpinEditProperties, TcxCustomEditProperties)

    explicit TcxSpinEditProperties(TcxSpinEdit& edit);

    // What one step adds; a whole value takes it rounded. 0 holds the value where it is.
    Double Increment() const { return FIncrement; }
    void SetIncrement(Double increment) { FIncrement = increment; }

    // Limits hold for steps and for what is accepted, not for what is being typed or written.
    // Setting one sets its flag.
    Double MinValue() const { return FMinValue; }
    void SetMinValue(Double value);
    bool HasMinValue() const { return FHasMinValue; }
    void ClearMinValue() { FHasMinValue = false; }
    Double MaxValue() const { return FMaxValue; }
    void SetMaxValue(Double value);
    bool HasMaxValue() const { return FHasMaxValue; }
    void ClearMaxValue() { FHasMaxValue = false; }

    // Patterns as AppendPattern takes them; an empty one writes no more digits than needed. The
    // field shows DisplayFormat, and EditFormat while it has the focus, unless
    // UseDisplayFormatWhenEditing is set.
    const String& DisplayFormat() const { return FDisplayFormat; }
    void SetDisplayFormat(StringView pattern);
    const String& EditFormat() const { return FEditFormat; }
    void SetEditFormat(StringView pattern);
    bool UseDisplayFormatWhenEditing() const { return FUseDisplayFormatWhenEditing; }
    void SetUseDisplayFormatWhenEditing(bool use);

    // A value that the new type can't hold is rounded, which raises OnChange.
    TcxSpinEditValueType ValueType() const { return FValueType; }
    void SetValueType(TcxSpinEditValueType type);

private:
    String FDisplayFormat;
    String FEditFormat;
    Double FIncrement = 1.0;
    Double FMinValue = 0.0;
    Double FMaxValue = 0.0;
    TcxSpinEditValueType FValueType = TcxSpinEditValueType::Whole;
    bool FHasMinValue = false;
    bool FHasMaxValue = false;
    bool FUseDisplayFormatWhenEditing = false;
};

// A field for a number with two buttons that step it up and down; the keys Up and Down do the same,
// and each notch of the wheel is a press of one of them, after OnMouseWheel. The value follows the typing at once: empty text is null, and text that is no
// number yet leaves the last value until it is left or accepted, which shows the value again.
// Digits and signs of full width count as the ordinary ones. Return accepts what was entered,
// Escape takes it back. Times come from the host, through Tick.
class TcxSpinEdit : public TcxCustomEdit {
    QUORIN_CLASS(TcxSpinEdit, TcxCustomEdit)

    static constexpr Integer UpButton = 0;
    static constexpr Integer DownButton = 1;
    // In milliseconds: how long a button is held before it repeats, and between two repeats.
    static constexpr Integer RepeatDelay = 400;
    static constexpr Integer RepeatInterval = 100;

    explicit TcxSpinEdit(TComponent* owner = nullptr);
    ~TcxSpinEdit() override { BeginDestruction(); }

    TcxSpinEditProperties& Properties() override { return FProperties; }

    // Null, or Int64 or Double by the value type.
    const Variant& EditValue() const { return FValue; }
    // Shows the value with the caret behind it and raises Properties.OnChange before it returns; an
    // equal value does neither. Text is read as if it were typed. What is no number (other text, an
    // array) is ignored; "INF" and "NAN" as numbers are null.
    void SetEditValue(const Variant& value);

    Integer ButtonCount() const override { return 2; }
    TRect ButtonRect(Integer index) const override;

    // User action: this time has passed while a button may be held. At most one step per call, so
    // that a host that stood still does not catch up.
    void Tick(Integer milliseconds);

protected:
    bool HandleKey(Word key, TShiftState shift) override;
    Char Folded(Char unit) const override;
    bool Accepts(Char unit) const override;
    StringView PasteOf(StringView text) const override;
    void TextEdited() override;
    void RememberContent() override { FValueBeforeEdit = FValue; }
    void RestoreContent() override { SettleOn(FValueBeforeEdit); }
    void PostContent(const Variant* replaced) override;
    void PropertiesChanged() override;
    void ButtonDown(Integer index) override;
    bool WheelTurned(Integer wheelDelta) override;
    void FocusChanged() override;

private:
    bool IsWhole() const { return FProperties.ValueType() == TcxSpinEditValueType::Whole; }
    bool TryReadText(StringView text, Variant& value) const;
    bool TryRead(const Variant& from, Variant& value) const;
    Variant NumberOf(Double number) const;
    Variant Limited(const Variant& value) const;
    void Step(Integer steps);
    void SettleOn(const Variant& value);
    void ShowValue();

    TcxSpinEditProperties FProperties{*this};
    Variant FValue;
    Variant FValueBeforeEdit;
    String FShown; // kept for its memory
    Integer FUntilRepeat = 0;
    Integer FWheelRest = 0; // turned, but not yet a whole notch
};

} // namespace quorin
