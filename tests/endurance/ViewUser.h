#pragma once

#include "terminal/forms/ListForm.h"
#include "terminal/forms/TreeForm.h"
#include "tests/endurance/DayForm.h"

namespace quorin {

inline constexpr Integer ScreenRows = 24;

// The cells on screen, as a skin reads them, unless the form has nothing new.
void PaintShown(TShownForm& form, Integer top);

// The user of a grid sorts, filters, finds, scrolls, moves columns and takes layouts out and in.
void UseGrid(TDay& day, TListForm& form);
// Rows and records of a grid: a permutation of the control's records, or part of it where the grid
// is filtered; every cell is the control's.
void CheckGrid(TDay& day, TListForm& form, TBaseDataControl& control);
// No symbol twice; the look-up by symbol agrees.
TList<String> CheckSymbols(TDay& day, TListForm& form, TBaseDataControl& control);

void UseTree(TDay& day, TTreeForm& form);
// Every node once, each below its parent, one level down.
void CheckTree(TDay& day, TTreeForm& form);

// Both without their order.
bool AreSame(TList<String> left, TList<String> right);

} // namespace quorin
