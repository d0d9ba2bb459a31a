#pragma once

#include "platform/rtl/TList.h"
#include "terminal/forms/ListForm.h"

namespace quorin {

// The user's own symbols, in their order, from the market adapter and back.
TList<String> Favourites();
// Behind those that there are; what is one already stays where it is.
void AddFavourites(const TList<String>& symbols);
// Exactly these, in this order.
void SetFavourites(const TList<String>& symbols);

// Puts the symbol of a row on the favourites, or takes it off where it is one: see
// TListForm::ActionRecord for the row that is meant. False for a row that has become another.
Boolean ToggleFavourite(TListForm& form, Integer row);

} // namespace quorin
