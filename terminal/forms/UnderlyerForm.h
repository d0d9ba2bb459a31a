#pragma once

#include "terminal/forms/MarketListForm.h"

namespace quorin {

// What of one underlyer to show.
struct TUnderlyerChoice {
    String Exchange;
    String Series;
    TUnderlyerPriceDisplayMode Mode = udmFutures;
    String Month; // empty: every month, in an option mode none
    TOptionsType CallPut = otAll;
};

// The futures or options of one underlyer, and what there is to choose from.
class TUnderlyerForm : public TMarketListForm {
    QUORIN_CLASS(TUnderlyerForm, TMarketListForm)

    TUnderlyerForm() : FControl(BindMarket(CreateComponent<TUnderlyerControl>())) {}

    TUnderlyerControl& Control() { return *FControl; }

    void Show(const TUnderlyerChoice& choice);
    const String& Exchange() const { return FControl->Exchange(); }
    // Leaves what is shown alone if it is of this exchange, and shows nothing of it otherwise.
    void ChooseExchange(StringView exchange) { FControl->SetExchange(exchange); }
    // Of the exchange and of the series chosen.
    TList<String> SeriesCodes();
    TList<String> Months();

private:
    TUnderlyerControl* FControl; // the source's
};

} // namespace quorin
