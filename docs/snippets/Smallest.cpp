#include "embedded/EmbeddedServices.h"
#include "embedded/SilentHost.h"
#include "platform/rtl/Utf.h"
#include "viewdata/market/MarketAttributes.h"
#include "viewdata/market/MarketDataControl.h"

#include <iostream>

using namespace quorin;

int main() {
    TSilentHost host;                           // there is no user to ask
    TEmbeddedServices services({.Host = host}); // one of each service, installed
    services.Market().AddExchange({.Code = u"SEHK", .Currency = u"HKD"});
    services.Market().AddSeries({.Code = u"MAIN", .Exchange = u"SEHK"});
    services.Market().AddSymbol({.Symbol = u"00700", .Exchange = u"SEHK", .Series = u"MAIN"});

    const auto watch = CreateComponent<TCustomMarketDataControl>();
    watch->SetExchangeAndCategory(u"SEHK", -1); // -1: every category
    const Integer onScreen[] = {0};
    watch->ViewRecordChanged(onScreen);

    for (const Double price : {350.2, 350.4, 350.0}) { // your feed
        services.Items().Item(u"00700").SetField(Field::LastPrice, price);
        services.Items().Touch(services.Items().Item(u"00700"));
        services.Deliver(); // the control is told, and would tell its view
        std::cout << ToUtf8(watch->GetSymbol(0)) << ' '
                  << ToUtf8(watch->GetDisplayValue(0, MarketAttribute::LastPrice)) << '\n';
    }
}
