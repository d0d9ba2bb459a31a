#pragma once

#include "terminal/forms/ListForm.h"

namespace quorin {

// In place of a row: the captions.
inline constexpr Integer HeaderRow = -1;

// One row of a list as a line without its end: the visible columns, each in its width, with a mark
// behind the cells that have one.
String ListLine(TListForm& list, Integer row);

// A value with its kind, such as: real 350.2; and a text in quotation marks.
String KindText(const Variant& value);
String Quoted(StringView text);

} // namespace quorin
