#include "embedded/DataError.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/AuditText.h"
#include "terminal/console/ScriptAnswers.h"
#include "terminal/forms/QuickOrders.h"

namespace quorin {

namespace {

constexpr StringView PriceName(TActionPrice price) {
    switch (price) {
    case TActionPrice::Best: return u"best";
    case TActionPrice::Last: return u"last";
    default: return u"market";
    }
}

void QuickOrder(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const Integer record = RecordOf(screen.Market(), arguments.Number(2));
    const Integer side = arguments.Is(0, u"buy") ? OrderSide::Buy : OrderSide::Sell;
    for (const TQuickOrder& order : QuickOrders()) {
        if (order.Side != side || !arguments.Is(1, PriceName(order.Price))) continue;
        PrintResult(out, (screen.Market().List().*order.Take)(record), TakenText);
    }
}

TListForm& ShownPositions(TScriptScreen& screen) {
    if (screen.ShownPositions() == nullptr) Fail(u"no positions are shown");
    return *screen.ShownPositions();
}

TCustomPositionDataControl& PositionControl(TScriptScreen& screen) {
    if (screen.IsShowingPositionView()) return screen.PositionView().Control();
    return screen.Positions().Control();
}

void Close(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const Integer record = RecordOf(ShownPositions(screen), arguments.Number(2));
    for (const TQuickClose& close : QuickCloses()) {
        if (!arguments.Is(1, PriceName(close.Price))) continue;
        PrintResult(out, (PositionControl(screen).*close.Take)(record), TakenText);
    }
}

void CloseAll(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    PrintResult(out, PositionControl(screen).CloseAllPositions(), TakenText);
}

void CopyOrder(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const Integer record = RecordOf(ShownPositions(screen), arguments.Number(1));
    PrintResult(out, PositionControl(screen).CopyOrder(record), DoneText);
}

void CopyPrice(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const Integer record = RecordOf(screen.Market(), arguments.Number(1));
    screen.Market().List().CopyPrice(record, arguments.Number(2));
}

void Orders(TScriptScreen& screen, const TScriptArguments&, std::ostream&) {
    screen.ShowOrders();
}

void Cancel(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const Integer number = arguments.Number(1);
    if (screen.Desk().FindOrder(number) == nullptr) {
        Fail(u"there is no order " + IntegerToText(number));
    }
    PrintResult(out, screen.Desk().CancelOrder(number), DoneText);
}

void SaveAudit(const TOrderAudit& audit, const String& file) {
    try {
        audit.Save(ToUtf8(file));
    } catch (const EDataError& error) {
        Fail(FromUtf8(error.what()));
    }
}

void Audit(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const TOrderAudit& audit = screen.Desk().Audit();
    if (arguments.Has(1)) {
        SaveAudit(audit, arguments.Word(1));
        PrintResult(out, true, DoneText);
        return;
    }
    for (Integer index = 0; index < audit.Count(); ++index) {
        PrintAnswer(out, u"audit", AuditLine(audit[index], screen.Desk()));
    }
}

constexpr TScriptCommand Commands[] = {
    {"buy|sell market|last|best ROW", "one lot of a market row", QuickOrder},
    {"close best|last|market ROW", "closes a position", Close},
    {"closeall", "closes every position at the market", CloseAll},
    {"copyorder ROW", "copies a position into order entry", CopyOrder},
    {"copyprice ROW ATTRIBUTE", "copies a cell of a market row into order entry", CopyPrice},
    {"orders", "shows all orders of the day", Orders},
    {"cancel NUMBER", "cancels what is left of an order, by its number", Cancel},
    {"audit [FILE]", "lists everything that happened to orders, or saves it as CSV", Audit},
};

} // namespace

std::span<const TScriptCommand> OrderCommands() {
    return Commands;
}

} // namespace quorin
