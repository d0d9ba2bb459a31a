#pragma once

#include "terminal/forms/ListForm.h"
#include "terminal/forms/OrderDialog.h"
#include "viewdata/positionview/PositionViewDataControl.h"

#include <functional>
#include <optional>
#include <vector>

namespace quorin {

class TMarketListForm;
class TOrderDesk;
class TOrdersForm;
class TPositionForm;

inline constexpr Integer NoSide = -1; // in place of an OrderSide

// One thing that can be done with a row of a list, or with the list as a whole.
struct TRowAction {
    StringView Key;        // of its text
    Integer Side = NoSide; // of its order, where that does not depend on the row
    // The price that the action's order would have; nil and nothing for none.
    std::function<std::optional<Double>(Integer record)> Price = {};
    // What it does with the record and the column that the user is in; True when it was done.
    std::function<Boolean(Integer record, Integer attribute)> Take = {};
    bool IsOfRow = true;
};

// The actions of a list without their buttons. An action is for the row with the focus as the user
// saw it: it is refused, with a message, when another row has come into its place. While an action
// waits for an answer every other one is ignored. The owner must not die before the answer.
class TRowActions {
public:
    // Both must live longer.
    TRowActions(TListForm& form, TOrderDialog& dialog, std::vector<TRowAction> actions);

    Integer Count() const { return static_cast<Integer>(FActions.size()); }
    const TRowAction& Action(Integer index) const;
    // In the language in force.
    String Text(Integer index) const;

    // Takes in what the user sees from here on; for the skin, when it has drawn and when the focus
    // has moved.
    void Note();
    // What was noted: the row, empty for none, and the price of an action, empty for none.
    const String& ShownRow() const { return FShownKey; }
    const String& ShownPrice(Integer index) const;
    bool CanTake(Integer index) const;

    // User action on the row with the focus. True when it was done.
    Boolean Take(Integer index, Integer attribute);
    bool IsPending() const { return FIsPending; }
    // What came of the latest action, in a few words; empty where there is nothing to say.
    const String& Outcome() const { return FOutcome; }

private:
    Boolean TakeRow(const TRowAction& action, const String& price, Integer attribute);
    void NoteOutcome(std::size_t ordersBefore, bool isDone);

    TListForm& FForm;
    TOrderDialog& FDialog;
    std::vector<TRowAction> FActions;
    std::vector<String> FPrices; // by action
    String FShownKey;
    String FOutcome;
    bool FIsPending = false;
};

// The six quick orders of a market list, and the copy of a cell into order entry.
std::vector<TRowAction> MarketActions(TMarketListForm& form);
// The closes of a position list, each row and all of them.
std::vector<TRowAction> CloseActions(TCustomPositionDataControl& positions);
// The closes, turning a net position round, and the copy of one into order entry.
std::vector<TRowAction> PositionActions(TPositionForm& form);
// The closes, and the copy of a row into order entry as a sale.
std::vector<TRowAction> PositionViewActions(TPositionViewDataControl& positions);
// Cancels what is left of an order; with "ConfirmationPlaceOrd" the user is asked first.
std::vector<TRowAction> OrderActions(TOrdersForm& form, TOrderDialog& dialog);

} // namespace quorin
