#include "viewdata/editors/SpinField.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/editors/EditorRecord.h"

namespace quorin {

Double ValueOf(const TcxSpinEdit& editor) {
    Double value = 0.0;
    editor.EditValue().TryToDouble(value);
    return value;
}

Int64 WholeValueOf(const TcxSpinEdit& editor) {
    return editor.EditValue().IsNumber() ? editor.EditValue().ToInt64() : 0;
}

Boolean ShowValue(TcxSpinEdit*& editor, const Variant& value) {
    editor->SetEditValue(value);
    if (editor == nullptr) return false;
    CaretBehindText(*editor);
    return true;
}

void GroupTyped(TcxSpinEdit& editor, TTypedWidth width) {
    String text;
    if (!GroupTypedNumber(editor.EditingText(), width, text)) return;
    const auto lengthBefore = static_cast<Integer>(editor.EditingText().size());
    const Integer fromEnd = lengthBefore - editor.SelStart();
    editor.SetEditingText(text);
    editor.SetSelStart(static_cast<Integer>(text.size()) - fromEnd);
}

void ShowFormatted(TcxSpinEdit& editor) {
    const Boolean isWhole = editor.Properties().ValueType() == TcxSpinEditValueType::Whole;
    const Double value = isWhole ? static_cast<Double>(WholeValueOf(editor)) : ValueOf(editor);
    const String text = FormatPattern(value, editor.Properties().DisplayFormat());
    const auto lengthBefore = static_cast<Integer>(editor.EditingText().size());
    const Integer caretBefore = editor.SelStart();
    editor.SetEditingText(text);
    editor.SetSelStart(static_cast<Integer>(text.size()) + caretBefore - lengthBefore);
}

Boolean IsOnButton(const TcxSpinEdit& editor, Integer x, Integer y) {
    return editor.ButtonVisibleIndexAt({x, y}) >= 0;
}

} // namespace quorin
