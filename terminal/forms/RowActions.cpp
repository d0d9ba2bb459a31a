#include "terminal/forms/RowActions.h"

#include "platform/rtl/ScopedValue.h"
#include "terminal/forms/FormsHost.h"
#include "terminal/forms/OrderText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

TRowActions::TRowActions(TListForm& form, TOrderDialog& dialog, std::vector<TRowAction> actions)
    : FForm(form), FDialog(dialog), FActions(std::move(actions)), FPrices(FActions.size()) {}

const TRowAction& TRowActions::Action(Integer index) const {
    return FActions[static_cast<std::size_t>(index)];
}

String TRowActions::Text(Integer index) const {
    return InterfaceText(Action(index).Key);
}

const String& TRowActions::ShownPrice(Integer index) const {
    return FPrices[static_cast<std::size_t>(index)];
}

bool TRowActions::CanTake(Integer index) const {
    return !FIsPending && (!Action(index).IsOfRow || !FShownKey.empty());
}

void TRowActions::Note() {
    if (FIsPending) return; // what the question is about stays on the buttons
    const Integer row = FForm.View().FocusedRow();
    const Integer record = FForm.ActionRecord(row);
    FShownKey = record == NoRow ? String() : FForm.ShownKey(row);
    const String symbol = FForm.Symbol(row);
    for (std::size_t index = 0; index < FActions.size(); ++index) {
        const auto& price = FActions[index].Price;
        const auto now = price && record != NoRow ? price(record) : std::nullopt;
        FPrices[index] = now.has_value() ? PriceText(*now, symbol) : String();
    }
}

Boolean TRowActions::Take(Integer index, Integer attribute) {
    if (!CanTake(index)) return false;
    const TScopedValue pending(FIsPending, true);
    const TOrderDesk* desk = FDialog.Host().Desk();
    const std::size_t ordersBefore = desk == nullptr ? 0 : desk->Orders().size();
    FOutcome.clear();
    const TRowAction& action = Action(index);
    const Boolean isDone = action.IsOfRow ? TakeRow(action, ShownPrice(index), attribute)
                                          : action.Take(NoRow, attribute);
    NoteOutcome(ordersBefore, isDone);
    return isDone;
}

Boolean TRowActions::TakeRow(const TRowAction& action, const String& price, Integer attribute) {
    const Integer row = FForm.View().FocusedRow();
    if (!FForm.RowStillShows(row, FShownKey)) {
        const String now = FForm.RowKey(row);
        FDialog.Host().ShowMessage(
            now.empty() ? FormatText(InterfaceText(TerminalKey::Res_RowGone), {FShownKey})
                        : FormatText(InterfaceText(TerminalKey::Res_RowChanged), {FShownKey, now}));
        return false;
    }
    const Integer record = FForm.View().RecordIndex(row);
    if (price.empty()) return action.Take(record, attribute);
    return FDialog.TakeAsShown({FForm.Symbol(row), price},
                               [&] { return action.Take(record, attribute); });
}

void TRowActions::NoteOutcome(std::size_t ordersBefore, bool isDone) {
    const TOrderDesk* desk = FDialog.Host().Desk();
    if (desk != nullptr && desk->Orders().size() > ordersBefore) {
        FOutcome = OutcomeText(desk->Orders().back());
    } else if (!isDone) {
        FOutcome = InterfaceText(TerminalKey::Res_NotTaken);
    }
}

} // namespace quorin
