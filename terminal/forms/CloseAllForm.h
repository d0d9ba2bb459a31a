#pragma once

#include "terminal/forms/ListForm.h"
#include "viewdata/position/PositionDataControl.h"

#include <set>

namespace quorin {

// What the user is shown before every position is closed: the positions of a list of their own,
// which follows them, each ticked unless he ticks it off. A position that comes while he looks is
// not ticked; one that the list does not close, a sided one outside the position view, can't be.
class TCloseAllForm : public TListForm {
    QUORIN_CLASS(TCloseAllForm, TListForm)

    // Takes over the control that came with the question.
    explicit TCloseAllForm(std::unique_ptr<TCustomPositionDataControl> list);

    // Rows outside are not ticked and stay so, as do those that can't be.
    bool CanTick(Integer row);
    bool IsTicked(Integer row);
    void SetTicked(Integer row, bool isTicked);
    // Everything is ticked that was there to begin with, and nothing else.
    bool AreAllTicked() const { return FTicked == FOffered; }
    bool IsAnyTicked() const { return !FTicked.empty(); }
    // Symbols of the ticked positions.
    String TickedText() const;

    // Closes the ticked positions that are still there, each with one order at the market, as the
    // list that asked would have done. How many orders were taken.
    Integer CloseTicked();

private:
    // Nil where there is none, or none that the list closes.
    const TCustomPositionData* Closable(StringView symbol) const;

    TCustomPositionDataControl* FList; // the source's
    bool FIsOfView;                    // which closes sided positions too
    std::set<String> FOffered;         // symbols
    std::set<String> FTicked;
};

} // namespace quorin
