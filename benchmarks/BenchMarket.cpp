#include "benchmarks/BenchMarket.h"

#include "viewdata/services/FieldNumbers.h"

namespace quorin {

namespace {

constexpr StringView BenchSeries = u"EQTY";

} // namespace

TBenchUniverse& TBenchUniverse::OfSize(Integer symbols) {
    std::unique_ptr<TBenchUniverse>& universe = Kept();
    if (universe == nullptr || universe->FSize != symbols) {
        universe.reset();
        universe.reset(new TBenchUniverse(symbols));
    }
    return *universe;
}

std::unique_ptr<TBenchUniverse>& TBenchUniverse::Kept() {
    static std::unique_ptr<TBenchUniverse> universe;
    return universe;
}

void TBenchUniverse::Release() {
    Kept().reset();
}

TBenchUniverse::TBenchUniverse(Integer symbols)
    : FServices({.Host = FHost, .DataDirectory = {}, .SettingsPath = {}}), FSize(symbols) {
    TEmbeddedMarketAdapter& market = FServices.Market();
    market.AddExchange({.Code = BenchExchange});
    market.AddCategory({.CategoryID = 1});
    market.AddSeries({.Code = BenchSeries, .Exchange = BenchExchange, .CategoryID = 1});
    market.Reserve(symbols);
    for (Integer index = 0; index < symbols; ++index) {
        const String symbol = SymbolAt(index);
        market.AddSymbol({.Symbol = symbol, .Exchange = BenchExchange, .Series = BenchSeries});
        FServices.Items().Touch(Quote(index, 0));
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
