#include "terminal/forms/MarketWatchForm.h"

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
