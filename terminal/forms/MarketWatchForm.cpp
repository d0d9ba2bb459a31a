#include "terminal/forms/MarketWatchForm.h"

#include "terminal/forms/Favourites.h"

#include <algorithm>

namespace quorin {

TMarketWatchForm::TMarketWatchForm() : FControl(BindMarket(CreateComponent<TMarketControl>())) {
    TCustomMarketAdapter::GetInstance()->AddExchangeListener(
        MakeEvent<&TMarketWatchForm::MarketChanged>(this), this);
}

TMarketWatchForm::~TMarketWatchForm() {
    TCustomMarketAdapter::GetInstance()->RemoveExchangeListener(this);
}

void TMarketWatchForm::ShowMarket(StringView exchange, Integer category) {
    FExchange = String(exchange); // may be its own text
    FCategory = category;
    FWaits = !TCustomMarketAdapter::GetInstance()->IsMarketDataReady();
    FControl->SetExchangeAndCategory(FExchange, FCategory);
    View().SetTopRow(0);
}

void TMarketWatchForm::MarketChanged(Pointer, Pointer) {
    if (FWaits) ShowMarket(FExchange, FCategory);
}

std::vector<Integer> TMarketWatchForm::CategoriesOf(StringView exchange) {
    const TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    std::vector<Integer> categories;
    for (Integer index = 0; index < market.GetSeriesCount(exchange); ++index) {
        const auto* series = market.FindSeries(market.GetSeriesCode(exchange, index));
        if (series == nullptr) continue;
        const Integer category = series->GetCategoryID();
        const bool isKnown =
            std::find(categories.begin(), categories.end(), category) != categories.end();
        if (category >= 0 && !isKnown) categories.push_back(category);
    }
    return categories;
}

bool TMarketWatchForm::CanMoveRows() {
    return View().GetSortedItemCount() == 0 && View().RowCount() == FControl->Symbols().Count();
}

// The row moves now; what the services tell of favourites with the next delivery is the same order.
Boolean TMarketWatchForm::MoveRow(StringView symbol, StringView before) {
    const String moved(symbol); // may be the list's own text
    const String next(before);
    const bool areFavourites = FExchange == FavoriteExchange;
    TList<String> order = areFavourites ? Favourites() : FControl->Symbols();
    const Integer place = order.IndexOf(moved);
    if (!CanMoveRows() || place < 0 || moved == next) return false;
    order.Delete(place);
    const Integer target = next.empty() ? order.Count() : order.IndexOf(next);
    if (target < 0 || target == place) return false;
    order.Insert(target, moved);
    FControl->MoveRecord(FControl->RowOf(moved), target);
    if (areFavourites) {
        FControl->ClearAllFavoritePrice();
        AddFavourites(order);
    }
    View().SetFocusedRow(FControl->RowOf(moved));
    return true;
}

void TMarketWatchForm::ShowSymbols(const TList<String>& symbols) {
    FWaits = false;
    FControl->ClearAll();
    for (const String& symbol : symbols) {
        FControl->AddMarketData(TCustomMarketAdapter::GetInstance()->FindMarketData(symbol));
    }
    FControl->Changed();
    View().SetTopRow(0);
}

} // namespace quorin
