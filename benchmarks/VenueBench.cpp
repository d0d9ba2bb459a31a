#include "benchmarks/BenchMarket.h"

#include "embedded/venue/Venue.h"

#include <string>

// Updates of the venue while it is open and nobody looks on; and its start in a large universe.

namespace quorin {
namespace {

constexpr Integer Closes = 1000;

// Shares in steps of 0.01, with a previous close each.
class TShares {
public:
    explicit TShares(Integer symbols) {
        static constexpr TSpreadBand cents[] = {{0.0, 1e5, 0.01}};
        FMarket.AddSpreadTable(u"CENTS", cents);
        FMarket.AddExchange({.Code = BenchExchange});
        FMarket.AddCategory({.CategoryID = 1});
        FMarket.AddSeries({.Code = u"EQTY", .Exchange = BenchExchange, .CategoryID = 1});
        FMarket.Reserve(symbols);
        for (Integer index = 0; index < symbols; ++index) {
            FMarket.AddSymbol({.Symbol = SymbolAt(index),
                               .Exchange = BenchExchange,
                               .Series = u"EQTY",
                               .SpreadCode = u"CENTS",
                               .LotSize = 100.0,
                               .PreviousClose = 1.0 + index % Closes * 0.1});
        }
    }
    TEmbeddedSubscribeAdapter& Items() { return FItems; }
    TEmbeddedMarketAdapter& Market() { return FMarket; }

private:
    TEmbeddedSubscribeAdapter FItems;
    TEmbeddedMarketAdapter FMarket{FItems};
};

void VenueUpdates(benchmark::State& state) {
    TShares shares(static_cast<Integer>(state.range(0)));
    TVenue venue(shares.Items(), shares.Market(), {.Seed = 7});
    for (auto _ : state) venue.Step();
    state.SetItemsProcessed(venue.UpdateCount());
}

void VenueStart(benchmark::State& state) {
    TShares shares(static_cast<Integer>(state.range(0)));
    for (auto _ : state) {
        TVenue venue(shares.Items(), shares.Market(), {.Seed = 7});
        benchmark::DoNotOptimize(venue.StepNumber());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

QUORIN_GROWTH(VenueUpdates);
QUORIN_GROWTH(VenueStart, GrowthSizes[3], GrowthSizes[0], /*Runs=*/1);

} // namespace
} // namespace quorin
