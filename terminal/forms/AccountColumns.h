#pragma once

#include "terminal/forms/ListForm.h"

namespace quorin {

// Table of the custom columns of the terminal's account trees.
inline constexpr StringView AccountCustomColumns = u"AccountCustomColumn";

// The columns of these attributes, in this order; those without a caption are left out.
std::vector<TFormColumn> AccountColumns(std::span<const Integer> attributes);
// Whether a figure has a caption: one of the accounts' figures or a custom column of theirs.
bool IsAccountColumn(Integer attribute);

// Whether the built-in figure is a text, and whether it is an amount of money.
bool IsTextFigure(Integer attribute);
bool IsAmountFigure(Integer attribute);

} // namespace quorin
