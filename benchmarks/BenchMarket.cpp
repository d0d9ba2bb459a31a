#include "benchmarks/BenchMarket.h"

#include "viewdata/services/FieldNumbers.h"

#include <memory>

namespace quorin {

namespace {

constexpr StringView BenchSeries = u"EQTY";

} // namespace

TBenchUniverse& TBenchUniverse::OfSize(Integer symbols, bool withItems) {
    static std::unique_ptr<TBenchUniverse> universe;
    if (universe == nullptr || universe->FSize != symbols || universe->FWithItems != withItems) {
        universe.reset();
        universe.reset(new TBenchUniverse(symbols, withItems));
    }
    return *universe;
}

TBenchUniverse::TBenchUniverse(Integer symbols, bool withItems)
    : FServices({.Host = FHost, .DataDirectory = {}, .SettingsPath = {}}), FSize(symbols),
      FWithItems(withItems) {
    TEmbeddedMarketAdapter& market = FServices.Market();
    market.AddExchange({.Code = BenchExchange});
    market.AddCategory({.CategoryID = 1});
    market.AddSeries({.Code = BenchSeries, .Exchange = BenchExchange, .CategoryID = 1});
    market.Reserve(symbols);
    for (Integer index = 0; index < symbols; ++index) {
        const String symbol = SymbolAt(index);
        market.AddSymbol({.Symbol = symbol, .Exchange = BenchExchange, .Series = BenchSeries});
        if (withItems) FServices.Items().Touch(Quote(index, 0));
    }
    FServices.Deliver();
}

TEmbeddedSubItem& TBenchUniverse::Quote(Integer index, Integer step) {
    TEmbeddedSubItem& item = FServices.Items().Item(SymbolAt(index));
    for (const Integer field :
         {Field::BestBid, Field::BestAsk, Field::LastPrice, Field::BestBidQuantity, Field::Volume,
          Field::BestAskQuantity, Field::StrikePrice, Field::PreviousClose, Field::HighPrice,
          Field::LowPrice, Field::OpenPrice}) {
        item.SetField(field, 100.0 + index % 50 + 0.01 * ((step + field) % 100));
    }
    return item;
}

} // namespace quorin
