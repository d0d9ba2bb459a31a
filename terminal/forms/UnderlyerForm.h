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
    const String& Series() const { return FControl->Series(); }
    TUnderlyerChoice Choice() const;
    // What there is: exchanges, of the exchange chosen its series, and of that its months.
    TList<String> Exchanges();
    TList<String> SeriesCodes();
    TList<String> Months();

    // Chooses the first series that has what is wanted, where none is chosen.
    void ChooseSeries();
    // Chooses the first month, where the mode wants one and none is chosen.
    void ChooseMonth();
    // Chooses an exchange that has something to show, if none is chosen.
    void ChooseSomething();
    // The series of a future or an option, in a mode that shows it. False for any other symbol.
    bool ShowSymbol(StringView symbol);
    // The symbols have changed: reads the rows again.
    void Reload();

    String Title() override;

private:
    TUnderlyerControl* FControl; // the source's
};

} // namespace quorin
