#pragma once

#include "platform/rtl/CaseMapping.h"
#include "platform/rtl/Hash.h"
#include "platform/rtl/Types.h"

#include <initializer_list>
#include <vector>

namespace quorin {

// A blank is any unit up to the space. The results look into the given text.
StringView TrimLeft(StringView text);
StringView TrimRight(StringView text);
StringView Trim(StringView text);

String UpperCase(StringView text);
String LowerCase(StringView text);

// Equality and order without regard to case, unit by unit in upper case. The order is below, at or
// above zero; a text comes before a longer one that begins with it.
bool SameText(StringView left, StringView right);
int CompareText(StringView left, StringView right);

// As CompareText, but a run of ASCII digits counts as one number of any length ("A2" before "A10").
// Zero for equal texts only: what is equal so far is ordered unit by unit.
int CompareNatural(StringView left, StringView right);

// The pieces between the separators, as views into the text. Empty text gives none; one empty piece
// at the end is dropped, other empty pieces stay.
std::vector<StringView> Split(StringView text, Char separator);

// Replaces from left to right and does not look at what it has put in. An empty `from` replaces
// nothing.
String ReplaceAll(StringView text, StringView from, StringView to);

// Each %s becomes the next argument (nothing when there is none left), %% a percent sign; any other
// percent sign stays. Arguments are not read as patterns.
String FormatText(StringView pattern, std::initializer_list<StringView> arguments);

} // namespace quorin
