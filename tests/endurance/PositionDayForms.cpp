#include "terminal/forms/OrdersForm.h"
#include "terminal/forms/PositionForm.h"
#include "terminal/forms/PositionViewForm.h"
#include "tests/endurance/ViewUser.h"

namespace quorin {

namespace {

// What an account holds, or a master with all below it, as the services say.
TList<String> HeldSymbols(TDay& day, StringView account, bool withSubAccounts) {
    const TEmbeddedPositionAdapter& positions = day.Services.Positions();
    TPositionDictionary held;
    positions.GetPositionList(account, held);
    if (withSubAccounts) {
        TAccountDictionary subAccounts;
        day.Services.Accounts().GetSubAccountList(account, subAccounts);
        for (const auto& item : subAccounts) positions.GetPositionList(item.Key, held);
    }
    TList<String> symbols;
    for (const auto& [symbol, record] : held) {
        if (withSubAccounts || record->GetQuantity() != 0.0) symbols.Add(symbol);
    }
    return symbols;
}

template <class Control>
void CloseAny(TDay& day, Control& control, Integer record) {
    switch (day.Random.Pick(8)) {
    case 0: control.CloseToBest(record); return;
    case 1: control.CloseToLast(record); return;
    case 2:
        if (day.Random.OneIn(4)) control.CloseAllPositions();
        return;
    default: control.CloseToMarket(record); return;
    }
}

class TPositionDayForm final : public TDayForm {
public:
    explicit TPositionDayForm(TDay& day) : TDayForm(day) { Switch(); }

    void Switch() override {
        FForm.Control().SetAccount(Day.AnyAccount());
        FForm.Control().SetConvertCurrency(Day.AnyCurrency());
    }
    void Use(bool mayOrder) override {
        FForm.NoteShown();
        const Integer record = FForm.ActionRecord(Day.Random.Pick(FForm.RowCount() + 1));
        if (mayOrder) return CloseAny(Day, FForm.Control(), record);
        switch (Day.Random.Pick(4)) {
        case 0: FForm.Control().CopyOrder(record); return;
        case 1: FForm.Control().Watchable(record); return;
        default: return UseGrid(Day, FForm);
        }
    }
    void Paint() override { PaintShown(FForm, FForm.View().TopRow()); }
    void Check() override {
        CheckGrid(Day, FForm, FForm.Control());
        const TList<String> symbols = CheckSymbols(Day, FForm, FForm.Control());
        if (!Day.IsAllReady) return;
        Day.Findings.Require(AreSame(symbols, HeldSymbols(Day, FForm.Control().Account(), false)),
                             "the rows are not what the account holds", FForm.Control().Account());
    }

private:
    TPositionForm FForm;
};

class TPositionViewDayForm final : public TDayForm {
public:
    explicit TPositionViewDayForm(TDay& day) : TDayForm(day) { Switch(); }

    void Switch() override {
        FForm.ShowAccount(Day.AnyAccount());
        if (Day.Random.OneIn(3)) FForm.Control().SetAggregate();
        if (Day.Random.OneIn(3)) FForm.Control().SetFilterCurrency(Day.AnyCurrency());
        if (Day.Random.OneIn(3)) FForm.Control().SetShowChinaConnect(Day.AnyCurrency());
        if (Day.Random.OneIn(3)) FForm.Control().SetConvertCurrency(Day.AnyCurrency());
    }
    void Use(bool mayOrder) override {
        FForm.NoteShown();
        const Integer record = FForm.ActionRecord(Day.Random.Pick(FForm.RowCount() + 1));
        if (mayOrder) return CloseAny(Day, FForm.Control(), record);
        switch (Day.Random.Pick(4)) {
        case 0: FForm.Control().CopySymbol(record); return;
        case 1: return ReadWholeRow(Day.Random.Pick(FForm.RowCount()));
        default: return UseGrid(Day, FForm);
        }
    }
    void Paint() override { PaintShown(FForm, FForm.View().TopRow()); }
    void Check() override {
        TPositionViewControl& control = FForm.Control();
        CheckGrid(Day, FForm, control);
        const TList<String> symbols = CheckSymbols(Day, FForm, control);
        if (!Day.IsAllReady) return;
        const TList<String> held = HeldSymbols(Day, control.Account(), control.Aggregated());
        const bool showsPart =
            control.Aggregated() || Day.ShowsZeroQuantity || !control.FilterCurrency().empty();
        if (!showsPart) {
            Day.Findings.Require(AreSame(symbols, held), "the rows are not what the account holds",
                                 control.Account());
        }
        if (Day.ShowsZeroQuantity) return;
        for (const String& symbol : symbols) {
            Day.Findings.Require(held.Contains(symbol), "a row is held by nobody", symbol);
        }
    }

private:
    void ReadWholeRow(Integer row) {
        for (const Integer attribute : FForm.Attributes()) {
            FForm.Value(row, attribute);
            FForm.Text(row, attribute);
        }
    }

    TPositionViewForm FForm;
};

class TOrdersDayForm final : public TDayForm {
public:
    explicit TOrdersDayForm(TDay& day) : TDayForm(day), FForm(day.Services.Desk()) {}

    void Switch() override { FForm.View().SetTopRow(FForm.RowCount()); }
    void Use(bool mayOrder) override {
        if (!mayOrder) return UseGrid(Day, FForm);
        TOrderDesk& desk = Day.Services.Desk();
        const TList<const TDeskOrder*> working = desk.WorkingOrders();
        if (!working.IsEmpty()) {
            desk.CancelOrder(working[Day.Random.Pick(working.Count())]->Number);
        }
    }
    void Paint() override { PaintShown(FForm, FForm.View().TopRow()); }
    // Fewer rows than orders while a delivery is to come. Not row by row: the day has many.
    void Check() override {
        const Integer orders = static_cast<Integer>(Day.Services.Desk().Orders().size());
        TcxGridTableView& view = FForm.View();
        const bool isNarrowed = view.Filter().Active() || view.FindPanel().IsOpen();
        Day.Findings.Require(isNarrowed ? view.RowCount() <= orders : view.RowCount() == orders,
                             "the list has another number of rows than there are orders");
        const Integer row = Day.Random.Pick(view.RowCount());
        if (view.RowCount() == 0) return;
        const auto& order =
            Day.Services.Desk().Orders()[static_cast<std::size_t>(view.RecordIndex(row))];
        Day.Findings.Require(FForm.Value(row, OrderAttribute::Number) == Variant(order.Number),
                             "a row shows another order");
    }

private:
    TOrdersForm FForm;
};

} // namespace

std::unique_ptr<TDayForm> MakePositionDayForm(TDayFormKind kind, TDay& day) {
    if (kind == TDayFormKind::Position) return std::make_unique<TPositionDayForm>(day);
    if (kind == TDayFormKind::PositionView) return std::make_unique<TPositionViewDayForm>(day);
    return std::make_unique<TOrdersDayForm>(day);
}

} // namespace quorin
