#include "terminal/console/ScriptAnswers.h"

namespace quorin {

namespace {

TPositionViewControl& View(TScriptScreen& screen) {
    if (!screen.IsShowingPositionView()) Fail(u"the position view is not shown");
    return screen.PositionView().Control();
}

String OptionalCode(const TScriptArguments& arguments) {
    return arguments.Has(1) ? arguments.Word(1) : String();
}

// Another account is taken as it comes, known or not.
void PositionView(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    screen.ShowPositionView();
    if (arguments.Has(1)) screen.PositionView().ShowAccount(arguments.Word(1));
}

void Aggregate(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    TAccountView* view = screen.LastAccountView();
    if (view == nullptr) Fail(u"neither the position view nor a tree is shown");
    view->SetAggregate();
    PrintAnswer(out, u"mode", view->Aggregated() ? u"aggregated" : u"plain");
}

void FilterCurrency(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    View(screen).SetFilterCurrency(OptionalCode(arguments));
}

void ChinaConnect(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    View(screen).SetShowChinaConnect(OptionalCode(arguments));
}

void AccountInfo(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    View(screen);
    TPositionViewForm& view = screen.PositionView();
    for (const String& line : view.HolderLines()) PrintAnswer(out, u"info", line);
    PrintAnswer(out, u"status", view.StatusText());
}

void Totals(TScriptScreen& screen, const TScriptArguments&, std::ostream& out) {
    View(screen);
    TPositionViewForm& view = screen.PositionView();
    PrintAnswer(out, u"total", u"market value  " + view.MarketValueText());
    PrintAnswer(out, u"total", u"accept value  " + view.AcceptValueText());
}

void CopySymbol(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    TPositionViewControl& view = View(screen);
    view.CopySymbol(RecordOf(screen.PositionView(), arguments.Number(1)));
}

constexpr TScriptCommand Commands[] = {
    {"positionview [CODE]",
     "shows the position view of the account, or until the account changes of any other, known or "
     "not; \"\" is none",
     PositionView},
    {"aggregate",
     "sums over a master and its sub-accounts on or off, in the position view or the tree, "
     "whichever was shown last",
     Aggregate},
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
