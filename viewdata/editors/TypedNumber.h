#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// How large the whole number in front of the point may be.
enum class TTypedWidth : Byte { Bits32, Bits64 };

// What was typed, with its group marks in place: "1234.5" becomes "1,234.5". What stands behind the
// point stays as it is, and a sign stays in front. A whole number that does not parse, or not in
// that width, reads "0". False, and `text` left alone, where nothing but a sign was typed.
bool GroupTypedNumber(StringView typed, TTypedWidth width, String& text);

} // namespace quorin
