#include "terminal/forms/Favourites.h"

#include "terminal/forms/MarketListForm.h"
#include "terminal/forms/PositionForm.h"
#include "terminal/forms/PositionViewForm.h"
#include "viewdata/services/MarketAdapter.h"

namespace quorin {

namespace {

TCustomMarketAdapter& Adapter() {
    return *TCustomMarketAdapter::GetInstance();
}

} // namespace

TList<String> Favourites() {
    TList<String> symbols;
    for (Integer index = 0; index < Adapter().GetFavoriteCount(); ++index) {
        symbols.Add(Adapter().GetFavoriteSymbol(index));
    }
    return symbols;
}

void AddFavourites(const TList<String>& symbols) {
    for (const String& symbol : symbols) Adapter().AddFavorite(symbol);
}

void SetFavourites(const TList<String>& symbols) {
    const TList<String> before = Favourites();
    Adapter().RemoveFavorites({before.begin(), before.end()}, before.Count() - 1);
    AddFavourites(symbols);
}

Boolean ToggleFavourite(TListForm& form, Integer row) {
    const Integer record = form.ActionRecord(row);
    if (record == NoRow) return false;
    const String symbol = form.Symbol(row);
    if (Adapter().IsFavorite(symbol)) return Adapter().RemoveFavorite(symbol);
    if (auto* market = ObjectAs<TMarketListForm>(&form)) {
        return market->List().AddToFavorite(record);
    }
    if (auto* positions = ObjectAs<TPositionForm>(&form)) {
        return positions->Control().AddToFavorite(record);
    }
    if (auto* positions = ObjectAs<TPositionViewForm>(&form)) {
        return positions->Control().AddToFavorite(record);
    }
    return Adapter().AddFavorite(symbol);
}

} // namespace quorin
