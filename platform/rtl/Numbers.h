#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Numbers in text, always with the point and never by the locale of the process.

// Reading. Blanks (units up to the space) around the number and one sign are allowed, the rest must
// be the number, in ASCII digits; a Double also has a point and an exponent ("1.", ".5", "1E-3").
// Empty text, "inf", "nan", hexadecimal and what is too large do not parse: False, and the target
// keeps its value. A Double that is too small for its kind is 0.0.
bool TryParseDouble(StringView text, Double& target);
bool TryParseInteger(StringView text, Integer& target);
bool TryParseInt64(StringView text, Int64& target);
Double ToDoubleOr(StringView text, Double fallback);
Integer ToIntegerOr(StringView text, Integer fallback);

// To the nearest whole number, halves to the even one. What is beyond the width becomes the
// smallest or the largest number; NaN becomes 0.
Integer RoundToInteger(Double value);
Int64 RoundToInt64(Double value);

// Writing. The Append forms allocate nothing but what the target grows by. Each form first takes 15
// significant digits, then rounds to the decimals it shows, halves away from zero both times. A
// zero has no sign. Infinities and NaN are "INF", "-INF" and "NAN" in every form.

// Always with this many decimals (none for a negative number), with "," between groups of three
// digits if asked.
void AppendDecimals(String& target, Double value, int decimals, bool grouping);
String FormatDecimals(Double value, int decimals, bool grouping);

// By a pattern such as "#,##0.00##": a "0" is a digit always written, a "#" one that is left out
// where it would be an outer zero, a "," before the point asks for groups of three digits. More
// digits before the point than the pattern has are written all the same.
void AppendPattern(String& target, Double value, StringView pattern);
String FormatPattern(Double value, StringView pattern);

// No more digits than needed: a whole number has no point. Scientific ("1E20", "1.5E-7") from 1E15
// up and below 1E-5.
void AppendDouble(String& target, Double value);
String DoubleToText(Double value);

// The fewest digits that read back as the same Double, up to 17 of them. Scientific from 1E18 up
// and below 1E-7.
String ShortestText(Double value);

void AppendInteger(String& target, Int64 value);
String IntegerToText(Int64 value);

} // namespace quorin
