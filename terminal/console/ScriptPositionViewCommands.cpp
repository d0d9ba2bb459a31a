#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/console/ScriptAnswers.h"

namespace quorin {

namespace {

constexpr Integer MoneyDecimals = 2;
constexpr Char LineEnd = u'\n';

TPositionViewControl& View(TScriptScreen& screen) {
    if (!screen.IsShowingPositionView()) Fail(u"the position view is not shown");
    return screen.PositionView().Control();
}

String OptionalCode(const TScriptArguments& arguments) {
    return arguments.Has(1) ? arguments.Word(1) : String();
}

void PositionView(TScriptScreen& screen, const TScriptArguments&, std::ostream&) {
    screen.ShowPositionView();
}

void Aggregate(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    TPositionViewControl& view = View(screen);
    view.SetAggregate();
    PrintAnswer(out, u"mode", view.Aggregated() ? u"aggregated" : u"plain");
}

void FilterCurrency(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    View(screen).SetFilterCurrency(OptionalCode(arguments));
}

void ChinaConnect(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    View(screen).SetShowChinaConnect(OptionalCode(arguments));
}

void AccountInfo(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    String status;
    const String info = View(screen).GetAccountInfo(status);
    for (const StringView line : Split(info, LineEnd)) PrintAnswer(out, u"info", TrimRight(line));
    PrintAnswer(out, u"status", status);
}

void Totals(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    TPositionViewControl& view = View(screen);
    const auto print = [&](StringView name, Double total) {
        PrintAnswer(out, u"total",
                    String(name) + FormatDecimals(total, MoneyDecimals, /*grouping=*/true));
    };
    print(u"market value  ", view.GetTotalMarketValue());
    print(u"accept value  ", view.GetTotalAcceptValue());
}

void CopySymbol(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TPositionViewControl& view = View(screen);
    view.CopySymbol(RecordOf(screen.PositionView(), arguments.Number(1)));
}

constexpr TScriptCommand Commands[] = {
    {"positionview", "shows the position view of the account", PositionView},
    {"aggregate", "turns the sums over a master and its sub-accounts on or off", Aggregate},
    {"filtercurrency [CODE]", "positions in this currency alone; without a code all of them",
     FilterCurrency},
    {"chinaconnect [CODE]", "totals of China Connect in this currency, or of everything else",
     ChinaConnect},
    {"accountinfo", "the holder and the status of the account", AccountInfo},
    {"totals", "market value and accept value of the position view", Totals},
    {"copysymbol ROW", "copies a row of the position view into order entry, as a sale", CopySymbol},
};

} // namespace

std::span<const TScriptCommand> PositionViewCommands() {
    return Commands;
}

} // namespace quorin
