#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Columns of a text screen. East Asian wide and full-width characters take two, combining and
// joining marks none, everything else one. Does not ask the locale.
Integer TextWidth(StringView text);

enum class TAlign : Byte { Left, Right };

// The text in exactly `width` columns: blanks on the other side of the alignment; what is too wide
// loses its end to "…". Control characters, which would move the cursor, become U+FFFD. Surrogates
// stay in pairs.
String FitText(StringView text, Integer width, TAlign align = TAlign::Left);

// The same for a text that stands in no column: as wide as it is, at most 80 columns.
String PlainText(StringView text);

} // namespace quorin
