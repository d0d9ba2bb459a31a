#pragma once

#include "terminal/forms/MarketControl.h"

namespace quorin {

// A market list without its pixels. A skin calls FollowVisibleRows before it draws, reads texts and
// marks, and forwards what the user does to the grid.
class TMarketListForm : public TListForm {
    QUORIN_CLASS(TMarketListForm, TListForm)

    ~TMarketListForm() override;

    TCustomMarketDataControl& List() { return *FList; }
    TMarketRows& Rows() { return *FRows; }

    // The account whose positions the rows refer to; as soon as it is known, if it is not yet.
    void ShowAccount(StringView account);
    const String& Account() const { return FAccount; }
    // Whether the list follows the account's positions and has their columns. To begin with it
    // follows them, and the columns are hidden.
    void ShowPositions(bool shown);
    // Subscribes exactly the rows on screen when they are others than last time; to be called
    // before each paint.
    void FollowVisibleRows();

    // How the last price moved with the row's latest update, and where it stands against the
    // previous close. False when that is not known; `state` is then left alone.
    bool LastMove(Integer row, TPriceChangeState& state);
    bool ChangeDirection(Integer row, TPriceChangeState& state);
    bool HasMarks(Integer attribute) const override;
    std::optional<TPriceChangeState> Mark(Integer row, Integer attribute) override;
    // Best prices and their quantities, the last price and the volume.
    std::optional<TPriceChangeState> TakeMove(Integer row, Integer attribute) override;

protected:
    TMarketListForm();
    template <class Control>
    Control* BindMarket(std::unique_ptr<Control> control) {
        Control* bound = control.get();
        FList = bound;
        FRows = bound;
        Bind(std::move(control), MarketCustomColumns);
        FList->SetShowPosition(true);
        ShowPositionColumns(false);
        FollowAccounts();
        return bound;
    }

private:
    void FollowAccounts();
    void AccountsReady(Pointer Sender, Pointer Data);
    void ShowPositionColumns(bool shown);

    TCustomMarketDataControl* FList = nullptr;
    TMarketRows* FRows = nullptr; // the same
    String FAccount;
    std::vector<Integer> FFollowedRows;
    std::vector<String> FFollowedSymbols;
};

} // namespace quorin
