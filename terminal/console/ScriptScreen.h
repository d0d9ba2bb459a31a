#pragma once

#include "terminal/console/ConsoleSession.h"
#include "terminal/console/ScriptTickets.h"
#include "terminal/forms/AccountTreeForm.h"
#include "terminal/forms/CashTreeForm.h"
#include "terminal/forms/OrdersForm.h"
#include "terminal/forms/PositionForm.h"
#include "terminal/forms/PositionViewForm.h"
#include "terminal/forms/UnderlyerForm.h"

#include <ostream>

namespace quorin {

// What the user of a script looks at: a market list, below it positions, trees of accounts and
// orders once they were asked for, order entry, and the order tickets that were opened. Prints what
// has changed on it and nothing else, and before that reports what has happened to orders.
class TScriptScreen {
public:
    explicit TScriptScreen(TConsoleSession& session);

    TConsoleSession& Session() { return FSession; }
    TOrderDesk& Desk() { return FSession.Services().Desk(); }

    // The market list that is shown: the watch or the underlyer's.
    TMarketListForm& Market() { return *FMarket; }
    TMarketWatchForm& Watch() { return FSession.Watch(); }
    TUnderlyerForm& Underlyer() { return FUnderlyer; }
    TPositionForm& Positions() { return FPositions; }
    // The market list, the positions or the position view, whichever was shown last.
    TListForm& LastList() { return *FLastList; }
    // That list or a tree, whichever was shown last.
    TShownForm& Last() { return *FLast; }
    // Made when it is asked for first, which is when it reads some of the settings.
    TPositionViewForm& PositionView();
    // Nothing before it was shown.
    TAccountTreeForm* AccountTree() { return FAccountTree.get(); }
    // The position view or a tree, whichever was shown last; nothing before that.
    TAccountView* LastAccountView() { return FLastAccountView; }
    TFormView LastView() { return FLast->FormView(); }
    TViewDialogs& ViewDialogs() { return FViewDialogs; }
    // The list that closes act on: the positions or the position view, whichever was shown last;
    // nothing before that.
    TListForm* ShownPositions() { return FShownPositions; }
    bool IsShowingPositionView() const {
        return FHasPositionView && FShownPositions == FPositionView.get();
    }

    TScriptTickets& Tickets() { return FTickets; }

    // An exchange, or FavoriteExchange.
    void ShowWatch(StringView exchange);
    void ShowUnderlyer(const TUnderlyerChoice& choice, StringView title);
    void ShowPositions();
    void ShowPositionView();
    TAccountTreeForm& ShowAccountTree();
    void ShowCashTree(bool ofAllAccounts);
    void ShowOrders() { FHasOrders = true; }
    void ShowAccount(StringView account);
    // The exchange of the market list; empty for the favourites.
    String Exchange() const;

    // Has the rows on screen followed; also between two deliveries.
    void Follow();
    void PrintChanges(std::ostream& out);

private:
    struct TPrinted {
        StringView Label;
        bool HasRowNumbers;
        String Title;
        String Captions;
        std::vector<String> Rows;
    };

    String Title() const;
    void PrintReports(std::ostream& out);
    void PrintLine(std::ostream& out, StringView label, String& printed, String line);
    void PrintList(std::ostream& out, TPrinted& printed, TShownForm& list, Integer rows);
    void PrintAll(std::ostream& out, TPrinted& printed, TShownForm* form);
    void NoteList(TListForm& list);
    void NoteTree(TTreeForm& tree);

    TConsoleSession& FSession;
    TViewDialogs FViewDialogs{FSession.Host()};
    TUnderlyerForm FUnderlyer;
    TPositionForm FPositions;
    std::unique_ptr<TPositionViewForm> FPositionView;
    std::unique_ptr<TAccountTreeForm> FAccountTree;
    std::unique_ptr<TCashTreeForm> FCashTree;
    TOrdersForm FOrders;
    TScriptTickets FTickets;
    TMarketListForm* FMarket;
    TListForm* FLastList;
    TShownForm* FLast;
    TAccountView* FLastAccountView = nullptr;
    TListForm* FShownPositions = nullptr;
    bool FHasPositions = false;
    bool FHasPositionView = false;
    bool FHasOrders = false;
    Integer FReported = 0; // lines of the audit list
    String FAccount;
    String FExchange; // of the watch
    String FUnderlyerTitle;
    String FPrintedHead;
    String FPrintedEntry;
    TPrinted FPrintedMarket{u"market", true, {}, {}, {}};
    TPrinted FPrintedPositions{u"position", true, {}, {}, {}};
    TPrinted FPrintedPositionView{u"view", true, {}, {}, {}};
    TPrinted FPrintedOrders{u"order", false, {}, {}, {}};
    TPrinted FPrintedTree{u"tree", true, {}, {}, {}};
    TPrinted FPrintedCash{u"cash", true, {}, {}, {}};
};

} // namespace quorin
