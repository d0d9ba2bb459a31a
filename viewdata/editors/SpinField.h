#pragma once

#include "platform/widgets/SpinEdit.h"
#include "viewdata/editors/TypedNumber.h"

namespace quorin {

// What price and quantity fields do alike with their widget.

// The value as a number; 0.0 for none.
Double ValueOf(const TcxSpinEdit& editor);
// The same as a whole number.
Int64 WholeValueOf(const TcxSpinEdit& editor);

// Writes the value; Properties.OnChange is raised inside. The caret ends up behind the text. False
// when `editor`, the record's own pointer, was taken away meanwhile.
Boolean ShowValue(TcxSpinEdit*& editor, const Variant& value);

// Puts the group marks into what was typed; the caret keeps its distance from the end.
void GroupTyped(TcxSpinEdit& editor, TTypedWidth width);

// Writes the value as it is displayed; the caret keeps its distance from the end.
void ShowFormatted(TcxSpinEdit& editor);

// The press lies on one of the spin buttons.
Boolean IsOnButton(const TcxSpinEdit& editor, Integer x, Integer y);

} // namespace quorin
