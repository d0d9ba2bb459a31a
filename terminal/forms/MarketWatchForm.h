#pragma once

#include "terminal/forms/MarketListForm.h"

namespace quorin {

inline constexpr Integer EveryCategory = -1;

// The market watch of one exchange, of the favourites or of chosen symbols.
class TMarketWatchForm : public TMarketListForm {
    QUORIN_CLASS(TMarketWatchForm, TMarketListForm)

    TMarketWatchForm();
    ~TMarketWatchForm() override;

    TMarketControl& Control() { return *FControl; }

    // Loads the rows of an exchange, or of the favourites; of a category as well, where it is none
    // below 0. As soon as the universe is ready, if it is not yet.
    void ShowMarket(StringView exchange, Integer category = EveryCategory);
    // What was asked for last.
    const String& Exchange() const { return FExchange; }
    Integer Category() const { return FCategory; }
    // The categories that the series of an exchange belong to, each once, in their order.
    static std::vector<Integer> CategoriesOf(StringView exchange);
    // Whether the rows stand as their list does: not sorted, none left out.
    bool CanMoveRows();
    // Puts a row before another one, or behind all with an empty text; the focus goes with it. Of
    // favourites the services know the new order at once; other lists have it until they are loaded
    // again. False, with nothing done, where rows can't be moved or one of the two is gone.
    Boolean MoveRow(StringView symbol, StringView before);
    // Shows these symbols, in this order; those without a record are left out.
    void ShowSymbols(const TList<String>& symbols);

private:
    void MarketChanged(Pointer Sender, Pointer Data);

    TMarketControl* FControl; // the source's
    String FExchange;
    Integer FCategory = EveryCategory;
    bool FWaits = false; // for the universe
};

} // namespace quorin
