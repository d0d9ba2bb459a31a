#include "terminal/forms/TradesForm.h"

#include "viewdata/services/Formatter.h"

namespace quorin {

TTradesForm::~TTradesForm() {
    SetSymbol({});
}

void TTradesForm::SetSymbol(StringView symbol) {
    if (symbol == FSymbol) return;
    TMarketTradeSideDetector& detector = *TMarketTradeSideDetector::GetInstance();
    const String left = FSymbol;
    FSymbol = symbol;
    if (!FSymbol.empty()) detector.AddSymbol(FSymbol);
    if (!left.empty()) detector.RemoveSymbol(left);
}

const TSymbolMarketTrade* TTradesForm::State() const {
    if (FSymbol.empty()) return nullptr;
    return TMarketTradeSideDetector::GetInstance()->GetSymbolMarketTrade(FSymbol);
}

Integer TTradesForm::Count() const {
    const TSymbolMarketTrade* state = State();
    if (state == nullptr) return 0;
    Integer count = 0;
    for (Integer index = 0; index < state->GetCount(); ++index) {
        if (!state->GetTrade(index)->Time().empty()) ++count; // places without a trade come first
    }
    return count;
}

const TMarketDataTrade* TTradesForm::Trade(Integer index) const {
    if (index < 0 || index >= Count()) return nullptr;
    const TSymbolMarketTrade* state = State();
    return state->GetTrade(state->GetCount() - 1 - index);
}

String TTradesForm::PriceText(const TMarketDataTrade& trade) const {
    return TCustomFormatter::GetInstance()->FormatValue(trade.Price(), DisplayDataType::MarketPrice,
                                                        FSymbol, /*Flag=*/true, nullptr);
}

} // namespace quorin
