#pragma once

#include "terminal/forms/MarketListForm.h"

namespace quorin {

// The market watch of one exchange, of the favourites or of chosen symbols.
class TMarketWatchForm : public TMarketListForm {
    QUORIN_CLASS(TMarketWatchForm, TMarketListForm)

    TMarketWatchForm();
    ~TMarketWatchForm() override;

    TMarketControl& Control() { return *FControl; }

    // Loads the rows of an exchange, or of the favourites; as soon as the universe is ready, if it
    // is not yet.
    void ShowMarket(StringView exchange);
    // Shows these symbols, in this order; those without a record are left out.
    void ShowSymbols(const TList<String>& symbols);

private:
    void MarketChanged(Pointer Sender, Pointer Data);

    TMarketControl* FControl; // the source's
    String FExchange;         // that is still to be shown; empty: none
};

} // namespace quorin
