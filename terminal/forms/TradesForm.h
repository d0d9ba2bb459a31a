#pragma once

#include "viewdata/market/MarketTradeSideDetector.h"

namespace quorin {

// The latest trades of one symbol with the side of the market that each hit. Reads what the
// detector knows at the moment of asking; must be gone before the detector is released.
class TTradesForm : public TObject {
    QUORIN_CLASS(TTradesForm, TObject)

    TTradesForm() = default;
    ~TTradesForm() override;

    // Follows another symbol from here on; empty follows none.
    void SetSymbol(StringView symbol);
    const String& Symbol() const { return FSymbol; }

    // Trades that have arrived, at most the five latest.
    Integer Count() const;
    // 0 is the newest; nil outside. Good until the next update.
    const TMarketDataTrade* Trade(Integer index) const;
    // The trade's price as prices of the symbol are shown.
    String PriceText(const TMarketDataTrade& trade) const;

private:
    const TSymbolMarketTrade* State() const;

    String FSymbol;
};

} // namespace quorin
