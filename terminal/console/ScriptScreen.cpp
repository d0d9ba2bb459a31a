#include "terminal/console/ScriptScreen.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"
#include "terminal/console/AuditText.h"
#include "terminal/console/ListText.h"
#include "terminal/console/TextWidth.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <utility>

namespace quorin {

namespace {

constexpr StringView HeadLabel = u"head";
constexpr StringView ReportLabel = u"report";
constexpr StringView EntryLabel = u"entry";
constexpr StringView TitleGap = u"  ";
constexpr Integer RowNumberWidth = 3;
constexpr StringView Gone = u"gone";

String RowNumber(Integer row) {
    return FitText(row == HeaderRow ? String() : IntegerToText(row), RowNumberWidth,
                   TAlign::Right) +
           u" ";
}

void Print(std::ostream& out, StringView label, StringView text) {
    out << ToUtf8(LabelledLine(label, text)) << '\n';
}

} // namespace

TScriptScreen::TScriptScreen(TConsoleSession& session)
    : FSession(session), FOrders(session.Services().Desk()), FMarket(&session.Watch()),
      FLastList(FMarket), FLast(FMarket), FExchange(session.Head().Exchange) {
    Watch().ShowPositions(true);
    FUnderlyer.ShowPositions(true);
    FUnderlyer.View().SetVisibleRowCapacity(Watch().View().VisibleRowCapacity());
    ShowAccount(Watch().Account());
}

void TScriptScreen::ShowWatch(StringView exchange) {
    FExchange = exchange;
    Watch().ShowMarket(exchange);
    FMarket = &Watch();
    NoteList(*FMarket);
}

void TScriptScreen::ShowUnderlyer(const TUnderlyerChoice& choice, StringView title) {
    FUnderlyerTitle = title;
    FUnderlyer.Show(choice);
    FMarket = &FUnderlyer;
    NoteList(*FMarket);
}

void TScriptScreen::ShowPositions() {
    FHasPositions = true;
    NoteList(FPositions);
    FShownPositions = &FPositions;
}

void TScriptScreen::ShowPositionView() {
    FHasPositionView = true;
    NoteList(PositionView());
    FShownPositions = FPositionView.get();
    FLastAccountView = FPositionView.get();
}

TPositionViewForm& TScriptScreen::PositionView() {
    if (FPositionView == nullptr) {
        FPositionView = std::make_unique<TPositionViewForm>();
        FPositionView->ShowAccount(FAccount);
    }
    return *FPositionView;
}

TAccountTreeForm& TScriptScreen::ShowAccountTree() {
    if (FAccountTree == nullptr) {
        FAccountTree = std::make_unique<TAccountTreeForm>();
        FAccountTree->ShowAccount(FAccount);
    }
    NoteTree(*FAccountTree);
    return *FAccountTree;
}

// A tree of all accounts stays one; the tree of one account is another.
void TScriptScreen::ShowCashTree(bool ofAllAccounts) {
    if (FCashTree == nullptr || FCashTree->IsShowingAll() != ofAllAccounts) {
        FCashTree = std::make_unique<TCashTreeForm>();
        FCashTree->ShowAccount(FAccount);
        if (ofAllAccounts) FCashTree->ShowAll();
    }
    NoteTree(*FCashTree);
}

void TScriptScreen::NoteList(TListForm& list) {
    FLastList = &list;
    FLast = &list;
}

void TScriptScreen::NoteTree(TTreeForm& tree) {
    FLast = &tree;
    FLastAccountView = &tree;
}

void TScriptScreen::ShowAccount(StringView account) {
    FAccount = account;
    Watch().ShowAccount(FAccount);
    FUnderlyer.ShowAccount(FAccount);
    FPositions.Control().SetAccount(FAccount);
    if (FPositionView != nullptr) FPositionView->ShowAccount(FAccount);
    if (FAccountTree != nullptr) FAccountTree->ShowAccount(FAccount);
    if (FCashTree != nullptr) FCashTree->ShowAccount(FAccount);
}

String TScriptScreen::Exchange() const {
    if (FMarket == &FUnderlyer) return FUnderlyer.Exchange();
    return FExchange == FavoriteExchange ? String() : FExchange;
}

String TScriptScreen::Title() const {
    String title = FExchange;
    if (FExchange == FavoriteExchange) title = InterfaceText(TerminalKey::Res_Favourites);
    if (FMarket == &FUnderlyer) title = FUnderlyerTitle;
    return title + String(TitleGap) + FAccount;
}

void TScriptScreen::Follow() {
    FMarket->FollowVisibleRows();
}

void TScriptScreen::PrintChanges(std::ostream& out) {
    Follow();
    PrintReports(out);
    TFrameHead head = FSession.Head();
    head.Exchange = Title();
    PrintLine(out, HeadLabel, FPrintedHead, HeadText(head));
    PrintList(out, FPrintedMarket, *FMarket, FMarket->View().VisibleRowCount());
    if (FHasPositions) PrintAll(out, FPrintedPositions, &FPositions);
    if (FHasPositionView) PrintAll(out, FPrintedPositionView, FPositionView.get());
    PrintAll(out, FPrintedTree, FAccountTree.get());
    PrintAll(out, FPrintedCash, FCashTree.get());
    if (FHasOrders) PrintAll(out, FPrintedOrders, &FOrders);
    PrintLine(out, EntryLabel, FPrintedEntry, FSession.Host().Orders().Entry().Text());
    FTickets.PrintChanges(out);
    FMarket->NoteShown();
    FPositions.NoteShown();
    if (FPositionView != nullptr) FPositionView->NoteShown();
}

// Questions and answers were printed when they were asked.
void TScriptScreen::PrintReports(std::ostream& out) {
    const TOrderAudit& audit = Desk().Audit();
    for (; FReported < audit.Count(); ++FReported) {
        const TOrderAuditEntry& entry = audit[FReported];
        const bool isPrinted =
            entry.Kind == TOrderAuditKind::Question || entry.Kind == TOrderAuditKind::Answer;
        if (!isPrinted) Print(out, ReportLabel, AuditLine(entry, Desk()));
    }
}

void TScriptScreen::PrintLine(std::ostream& out, StringView label, String& printed, String line) {
    if (line == printed) return;
    Print(out, label, line);
    printed = std::move(line);
}

void TScriptScreen::PrintAll(std::ostream& out, TPrinted& printed, TShownForm* form) {
    if (form != nullptr) PrintList(out, printed, *form, form->RowCount());
}

void TScriptScreen::PrintList(std::ostream& out, TPrinted& printed, TShownForm& list,
                              Integer rows) {
    PrintLine(out, printed.Label, printed.Title, list.Title());
    const auto line = [&](Integer row) {
        return (printed.HasRowNumbers ? RowNumber(row) : String()) + ListLine(list, row);
    };
    PrintLine(out, printed.Label, printed.Captions, line(HeaderRow));
    const auto before = static_cast<Integer>(printed.Rows.size());
    printed.Rows.resize(static_cast<std::size_t>(rows));
    for (Integer row = 0; row < rows; ++row) {
        PrintLine(out, printed.Label, printed.Rows[static_cast<std::size_t>(row)], line(row));
    }
    if (rows >= before) return;
    const String last = rows + 1 < before ? u"-" + IntegerToText(before - 1) : String();
    Print(out, printed.Label, String(TrimRight(RowNumber(rows))) + last + u" " + String(Gone));
}

} // namespace quorin
