#pragma once

#include "terminal/forms/ShownForm.h"

namespace quorin {

// In place of a row: the captions.
inline constexpr Integer HeaderRow = -1;

// One row of a list or tree as a line without its end: the visible columns, each in its width, with
// a mark behind the cells that have one; the first is indented by the row's depth.
String ListLine(TShownForm& form, Integer row);

// A value with its kind, such as: real 350.2; and a text in quotation marks.
String KindText(const Variant& value);
String Quoted(StringView text);

} // namespace quorin
