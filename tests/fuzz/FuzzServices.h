#pragma once

#include "embedded/EmbeddedServices.h"

#include <functional>

namespace quorin {

// A host without a user: takes everything in and answers channel messages as the target says.
class TFuzzHost : public THost {
public:
    void ShowMessage(StringView) override {}
    Integer Confirm(StringView, Integer defaultAnswer) override { return defaultAnswer; }
    void WriteLog(StringView, Byte) override {}
    Boolean ChannelMessage(Integer number, Pointer data) override {
        return OnMessage && OnMessage(number, data);
    }
    std::function<bool(Integer, Pointer)> OnMessage;
};

// All embedded services, with the symbols 00005 (lots of 400) and 00700 (lots of 100), which share
// a tick table of two bands.
struct TFuzzServices {
    TFuzzServices() {
        static constexpr TSpreadBand bands[] = {{0.0, 10.0, 0.01}, {10.0, 500.0, 0.05}};
        TEmbeddedMarketAdapter& market = Services.Market();
        market.SetSpreadTablesAtOnce(true);
        market.AddSpreadTable(u"HK", bands);
        market.AddExchange({.Code = u"SEHK",
                            .Currency = u"HKD",
                            .MarketState = u"CT",
                            .MarketStatus = MarketOpen});
        market.AddCategory({.CategoryID = 1, .Names = {.Name = u"Stocks"}});
        market.AddSeries({.Code = u"MAIN", .Exchange = u"SEHK", .CategoryID = 1});
        for (const auto& [symbol, lot] : {std::pair{u"00005", 400.0}, {u"00700", 100.0}}) {
            market.AddSymbol({.Symbol = symbol,
                              .Exchange = u"SEHK",
                              .Series = u"MAIN",
                              .SpreadCode = u"HK",
                              .LotSize = lot});
            Services.Items().Touch(Services.Items().Item(symbol));
        }
        Services.Deliver();
    }

    TFuzzHost Host;
    TEmbeddedServices Services{{.Host = Host}};
};

} // namespace quorin
