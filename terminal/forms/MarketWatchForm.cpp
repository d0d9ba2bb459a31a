#include "terminal/forms/MarketWatchForm.h"

namespace quorin {

namespace {
constexpr Integer EveryCategory = -1;
}

TMarketWatchForm::TMarketWatchForm() : FControl(BindMarket(CreateComponent<TMarketControl>())) {
    TCustomMarketAdapter::GetInstance()->AddExchangeListener(
        MakeEvent<&TMarketWatchForm::MarketChanged>(this), this);
}

TMarketWatchForm::~TMarketWatchForm() {
    TCustomMarketAdapter::GetInstance()->RemoveExchangeListener(this);
}

void TMarketWatchForm::ShowMarket(StringView exchange) {
    const bool isReady = TCustomMarketAdapter::GetInstance()->IsMarketDataReady();
    FExchange = isReady ? StringView() : exchange;
    FControl->SetExchangeAndCategory(exchange, EveryCategory);
    View().SetTopRow(0);
}

void TMarketWatchForm::MarketChanged(Pointer, Pointer) {
    if (!FExchange.empty()) ShowMarket(String(FExchange));
}

void TMarketWatchForm::ShowSymbols(const TList<String>& symbols) {
    FControl->ClearAll();
    for (const String& symbol : symbols) {
        FControl->AddMarketData(TCustomMarketAdapter::GetInstance()->FindMarketData(symbol));
    }
    FControl->Changed();
    View().SetTopRow(0);
}

} // namespace quorin
