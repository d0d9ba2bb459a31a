#pragma once

#include "platform/widgets/GridTableView.h"
#include "terminal/forms/MarketControl.h"
#include "viewdata/frame/GridDataSource.h"

#include <memory>
#include <vector>

namespace quorin {

// The market watch of one exchange without its pixels: the control, its source and the grid. A
// skin calls FollowVisibleRows before it draws, reads texts and marks, and forwards what the user
// does to the grid. The services must be installed for as long as it lives.
class TMarketWatchForm : public TObject {
    QUORIN_CLASS(TMarketWatchForm, TObject)

    TMarketWatchForm();
    ~TMarketWatchForm() override;

    TcxGridTableView& View() { return *FView; }
    TMarketControl& Control() { return *FControl; }

    // Loads the rows of an exchange, or of the favourites; as soon as the universe is ready, if it
    // is not yet.
    void ShowMarket(StringView exchange);
    // The account whose positions the rows refer to; as soon as it is known, if it is not yet.
    void ShowAccount(StringView account);
    // Shows these symbols, in this order; those without a record are left out.
    void ShowSymbols(const TList<String>& symbols);

    // Subscribes exactly the rows on screen when they are others than last time; to be called
    // before each paint.
    void FollowVisibleRows();

    // How the last price moved with the row's latest update, and where it stands against the
    // previous close. False when that is not known; `state` is then left alone.
    bool LastMove(Integer row, TPriceChangeState& state);
    bool ChangeDirection(Integer row, TPriceChangeState& state);

    // The symbol that the row shows now; empty outside.
    String Symbol(Integer row);
    // Whether the row still shows the symbol that the user saw there: to be asked before the row's
    // index is passed on with an action.
    bool RowStillShows(Integer row, StringView symbol);

private:
    void MarketChanged(Pointer Sender, Pointer Data);
    void AccountsReady(Pointer Sender, Pointer Data);
    void GetCellText(Integer record, TcxCustomGridTableItem& column, String& text);

    TMarketControl* FControl; // the source's
    std::unique_ptr<TCustomGridDataSource> FSource;
    std::unique_ptr<TcxGridTableView> FView;
    String FExchange; // that is still to be shown; empty: none
    String FAccount;
    std::vector<Integer> FFollowedRows;
    std::vector<String> FFollowedSymbols;
};

} // namespace quorin
